#include "window_tour/Palettes.h"

#include <QStyle>
#include <QStyleFactory>

#include <memory>

namespace {

constexpr int PlaceholderAlpha = 160;

} // namespace

QPalette LightPalette() {
    const std::unique_ptr<QStyle> style(QStyleFactory::create("Fusion"));
    return style->standardPalette();
}

QPalette DarkPalette() {
    const QColor window(43, 43, 43);
    const QColor base(30, 30, 30);
    const QColor text(230, 230, 230);
    const QColor disabled(128, 128, 128);
    QPalette palette(window);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::Button, QColor(60, 60, 60));
    palette.setColor(QPalette::Highlight, QColor(61, 124, 201));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(110, 170, 240));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    palette.setColor(QPalette::PlaceholderText, QColor(text.red(), text.green(), text.blue(), PlaceholderAlpha));
    return palette;
}
