#include "widgets/ValueLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int Padding = 3;
constexpr int NarrowestText = 12; // characters

// A label may hold any byte; Unicode has a symbol for each control character, but not every font has them.
QString WithControlSymbols(QString text, const QFontMetrics& font) {
    for (QChar& character : text) {
        const char16_t code = character.unicode();
        if (code >= 0x20 && code != 0x7F)
            continue;
        const QChar symbol(code == 0x7F ? 0x2421 : 0x2400 + code);
        character = font.inFont(symbol) ? symbol : QChar(0xB7);
    }
    return text;
}

} // namespace

ValueLabel::ValueLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ValueLabel::SetLines(int lines) {
    lines_ = std::max(lines, 1);
    updateGeometry();
}

bool ValueLabel::IsCut() const {
    bool cut = false;
    (void)DrawnLines(cut);
    return cut;
}

QSize ValueLabel::sizeHint() const {
    const int edge = 2 * (frameWidth() + Padding);
    return {NarrowestText * fontMetrics().averageCharWidth() + edge, lines_ * fontMetrics().lineSpacing() + edge};
}

bool ValueLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       IsCut() ? WithControlSymbols(text(), fontMetrics()).toHtmlEscaped() : QString(), this);
    return true;
}

void ValueLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    bool cut = false;
    const QStringList drawn = DrawnLines(cut);
    // In the middle, where the caption beside it stands.
    const int spacing = fontMetrics().lineSpacing();
    QRect area = contentsRect().adjusted(Padding, 0, -Padding, 0);
    area.setTop(area.top() + (area.height() - static_cast<int>(drawn.size()) * spacing) / 2);
    for (int i = 0; i < drawn.size(); ++i)
        painter.drawText(QRect(area.left(), area.top() + i * spacing, area.width(), spacing),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, drawn[i]);
}

QStringList ValueLabel::DrawnLines(bool& cut) const {
    const QString shown = WithControlSymbols(text(), fontMetrics());
    const int width = contentsRect().width() - 2 * Padding;
    QTextLayout layout(shown, font(), const_cast<ValueLabel*>(this));
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QStringList drawn;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        if (drawn.size() + 1 == lines_) {
            const QString rest = shown.mid(line.textStart());
            drawn << fontMetrics().elidedText(rest, Qt::ElideRight, width);
            cut = drawn.back() != rest;
            break;
        }
        line.setLineWidth(width);
        drawn << shown.mid(line.textStart(), line.textLength());
    }
    layout.endLayout();
    return drawn;
}
