#include "Photographer.h"

#include <QPixmap>
#include <QWidget>

#include <stdexcept>

void Photographer::Visit(QWidget& window, const QString& name) {
    const QString path = directory_.filePath(name + ".png");
    if (!window.grab().save(path))
        throw std::runtime_error(("cannot write " + path).toStdString());
}
