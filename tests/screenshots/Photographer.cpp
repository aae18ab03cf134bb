#include "Photographer.h"

#include <QApplication>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <stdexcept>

namespace {
constexpr int LookForModalMs = 20;
}

void Photographer::Take(QWidget& window, const QString& name) const {
    QCoreApplication::processEvents();
    const QString path = directory_.filePath(name + ".png");
    if (!window.grab().save(path))
        throw std::runtime_error(("cannot write " + path).toStdString());
}

void Photographer::TakeModals(const QStringList& names, const std::function<void()>& work,
                              const std::function<void(QWidget&)>& prepare) const {
    QStringList left = names;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr)
            return;
        if (prepare)
            prepare(*modal);
        if (!left.isEmpty())
            Take(*modal, left.takeFirst());
        modal->close();
    });
    timer.start(LookForModalMs);
    work();
    if (!left.isEmpty())
        throw std::runtime_error(("no modal window for " + left.first()).toStdString());
}
