// Takes pictures of windows as their users see them.
#pragma once

#include "window_tour/WindowVisitor.h"

#include <QDir>

class Photographer : public WindowVisitor {
public:
    // Pictures go to the directory as NAME.png.
    explicit Photographer(const QDir& directory) : directory_(directory) {}

    // Errors: std::runtime_error where the picture cannot be written.
    void Visit(QWidget& window, const QString& name) override;

private:
    QDir directory_;
};
