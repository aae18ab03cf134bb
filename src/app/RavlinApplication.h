// The application object: names the program and is where an error ends that nobody caught.
#pragma once

#include <QApplication>

#include <functional>

class RavlinApplication : public QApplication {
public:
    RavlinApplication(int& argc, char** argv);

    // Delivers the event; an exception out of a handler is reported, and the program goes on.
    bool notify(QObject* receiver, QEvent* event) override;
};

// Runs work, one step of a longer task; an exception out of it is reported and the task goes on. True if there was
// none.
bool RunReported(const std::function<void()>& work);
