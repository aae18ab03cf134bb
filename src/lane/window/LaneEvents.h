// Carries what happens in the lane from the lane's thread to the window's.
#pragma once

#include <QObject>
#include <QString>

class LaneEvents : public QObject {
    Q_OBJECT

signals:
    void Happened(const QString& event);
};
