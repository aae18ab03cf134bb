// What a test sees of the message boxes that come up, and what it does while they are up.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTimer>

#include <functional>
#include <utility>
#include <vector>

// Notes the icons of the message boxes that are shown; once a box is up, work runs.
class BoxesSeen : public QObject {
public:
    explicit BoxesSeen(std::function<void()> work = {}) : work_(std::move(work)) { qApp->installEventFilter(this); }
    std::vector<QMessageBox::Icon> icons;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (const auto* box = qobject_cast<QMessageBox*>(watched); box != nullptr && event->type() == QEvent::Show) {
            icons.push_back(box->icon());
            if (work_)
                QTimer::singleShot(0, this, work_);
        }
        return false;
    }

private:
    std::function<void()> work_;
};
