#include "widgets/OutlinedStyle.h"

#include <QApplication>
#include <QPainter>
#include <QRegion>
#include <QStyleOption>

namespace {

constexpr int ButtonPadding = 12; // left and right together
constexpr int FusionDarkening = 140;

QColor EdgeColour(const QPalette& palette) {
    const QColor text = palette.color(QPalette::WindowText);
    const QColor window = palette.color(QPalette::Window);
    return {(text.red() + window.red()) / 2, (text.green() + window.green()) / 2, (text.blue() + window.blue()) / 2};
}

// Fusion takes the colour of edges from that of the window, darkened.
template<typename Option>
Option WithVisibleEdges(const Option& option) {
    Option outlined = option;
    outlined.palette.setColor(QPalette::Window, EdgeColour(option.palette).lighter(FusionDarkening));
    return outlined;
}

// Fusion's own frame loses two of its lines at 150 %, and does not show that a text or a list has the focus.
void DrawFrame(const QStyleOption& option, QPainter& painter) {
    const QColor colour = option.state.testFlag(QStyle::State_HasFocus) ? option.palette.color(QPalette::Highlight)
                                                                        : EdgeColour(option.palette);
    for (const QRect& edge : QRegion(option.rect) - option.rect.adjusted(1, 1, -1, -1))
        painter.fillRect(edge, colour);
}

} // namespace

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
    const auto draw = [&](const QStyleOption& outlined) {
        QProxyStyle::drawPrimitive(element, &outlined, painter, widget);
    };
    switch (element) {
    case PE_Frame:
        return DrawFrame(*option, *painter);
    case PE_FrameLineEdit:
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option))
            return draw(WithVisibleEdges(*frame));
        break;
    case PE_IndicatorCheckBox:
    case PE_IndicatorRadioButton:
    case PE_PanelButtonCommand: // of lists too
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option))
            return draw(WithVisibleEdges(*button));
        break;
    default:
        break;
    }
    draw(*option);
}

void OutlinedStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                       const QWidget* widget) const {
    if (const auto* numbers = qstyleoption_cast<const QStyleOptionSpinBox*>(option)) {
        const QStyleOptionSpinBox outlined = WithVisibleEdges(*numbers);
        QProxyStyle::drawComplexControl(control, &outlined, painter, widget);
    } else {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

QSize OutlinedStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                      const QWidget* widget) const {
    const QSize padding(type == CT_PushButton ? ButtonPadding : 0, 0);
    return QProxyStyle::sizeFromContents(type, option, contents + padding, widget);
}

void OutlineFusion() {
    if (QApplication::style()->name() == "fusion")
        QApplication::setStyle(new OutlinedStyle);
} // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the application owns the style
