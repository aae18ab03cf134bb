#include "platform/help/HelpBrowser.h"

#include <QEvent>
#include <QIcon>
#include <QScrollBar>

#include <cstdlib>

namespace {

constexpr int MarginPx = 14;
constexpr int MarkShare = 40;           // of the colour of a selection, in a hundred
constexpr int ReadableDifference = 100; // in lightness

// The colour between two: share parts in a hundred of the first.
QColor Between(const QColor& a, const QColor& b, int share) {
    const auto mix = [share](int x, int y) { return (x * share + y * (100 - share)) / 100; };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

// The palette's colour for links, lightened where the theme left it too dark for its background.
QColor LinkColour(const QPalette& palette) {
    const QColor link = palette.color(QPalette::Link);
    const QColor base = palette.color(QPalette::Base);
    if (std::abs(link.lightness() - base.lightness()) >= ReadableDifference)
        return link;
    return Between(link, palette.color(QPalette::Text), 45);
}

} // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent) {
    setOpenExternalLinks(false);
    document()->setDocumentMargin(MarginPx);
    ApplyColours();
}

void HelpBrowser::Highlight(const QStringList& words) {
    words_ = words;
    MarkWords();
}

bool HelpBrowser::FindInPage(const QString& text, QTextDocument::FindFlags direction) {
    if (find(text, direction))
        return true;
    const QTextCursor before = textCursor();
    moveCursor(direction.testFlag(QTextDocument::FindBackward) ? QTextCursor::End : QTextCursor::Start);
    if (find(text, direction))
        return true;
    setTextCursor(before);
    return false;
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    if (type == QTextDocument::ImageResource) {
        const QString path = ':' + (name.isRelative() ? source().resolved(name) : name).path();
        const QIcon image(path); // takes the rendering for the density of the screen
        return image.pixmap(QImage(path).size(), devicePixelRatio());
    }
    return QTextBrowser::loadResource(type, name);
}

void HelpBrowser::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
    QTextBrowser::doSetSource(url, type);
    if (url.hasFragment()) // the place would touch the upper border
        verticalScrollBar()->setValue(verticalScrollBar()->value() - MarginPx / 2);
    MarkWords();
}

void HelpBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        ApplyColours();
        if (!source().isEmpty()) {
            const int place = verticalScrollBar()->value();
            reload();
            verticalScrollBar()->setValue(place);
            MarkWords();
        }
    }
}

// The topics' own style sheet has no colours, so that they follow the theme.
void HelpBrowser::ApplyColours() {
    const QColor text = palette().color(QPalette::Text);
    const QColor base = palette().color(QPalette::Base);
    const QColor link = LinkColour(palette());
    document()->setDefaultStyleSheet(QStringLiteral("a:link { color: %1; } "
                                                    "code { color: %2; } "
                                                    "th { background-color: %3; } "
                                                    ".note { background-color: %4; } "
                                                    "table { border-color: %5; border-style: solid; }")
                                         .arg(link.name(), Between(text, link, 60).name(),
                                              Between(text, base, 14).name(), Between(link, base, 18).name(),
                                              Between(text, base, 35).name()));
}

void HelpBrowser::MarkWords() {
    QList<QTextEdit::ExtraSelection> marks;
    QTextCharFormat format;
    format.setForeground(palette().color(QPalette::Text)); // links too, which might not stand out
    format.setBackground(Between(palette().color(QPalette::Highlight), palette().color(QPalette::Base), MarkShare));
    for (const QString& word : words_) {
        QTextCursor place(document());
        while (!(place = document()->find(word, place)).isNull())
            marks.append({place, format});
    }
    setExtraSelections(marks);
    if (!marks.isEmpty() && source().fragment().isEmpty()) {
        setTextCursor(marks.first().cursor);
        QTextCursor plain = textCursor();
        plain.clearSelection();
        setTextCursor(plain);
        ensureCursorVisible();
    }
}
