// The mouse pointer of a program that is busy.
#pragma once

#include <QCursor>
#include <QGuiApplication>

// An hourglass as long as it lives; never across a message box, which needs its pointer.
class HourglassPointer {
public:
    HourglassPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~HourglassPointer() { QGuiApplication::restoreOverrideCursor(); }
    HourglassPointer(const HourglassPointer&) = delete;
    HourglassPointer& operator=(const HourglassPointer&) = delete;
};
