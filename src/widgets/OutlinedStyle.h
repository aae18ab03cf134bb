// The look of the program's windows where the system has none of its own.
#pragma once

#include <QProxyStyle>

// Fusion with more room in its buttons and with the edges of fields, boxes and buttons halfway between text and window.
// By itself it draws them a little darker than the window, where a dark theme hides them.
class OutlinedStyle : public QProxyStyle {
    Q_OBJECT

public:
    OutlinedStyle() : QProxyStyle("fusion") {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                         const QWidget* widget) const override;
};

// Gives the application this style in place of plain Fusion; any other style is the system's or asked for, and stays.
void OutlineFusion();
