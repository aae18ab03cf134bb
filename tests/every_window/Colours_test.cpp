// Text, edges and icons stand out from what is behind them, in a light theme and in a dark one.
#include "EveryWindow.h"

#include "platform/help/HelpBook.h"
#include "platform/help/HelpBrowser.h"
#include "platform/help/frmHelp.h"
#include "window_tour/Palettes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDirIterator>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTextBlock>
#include <QTextTable>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <ostream>
#include <vector>

namespace {

constexpr double ReadableText = 4.5;
constexpr double VisibleShape = 3.0;
constexpr double VisibleAtAll = 1.5; // for what is switched off
constexpr int VisibleShare = 25;     // of an icon, in a hundred
constexpr int EdgeDepth = 3;

double Linear(int channel) {
    const double share = channel / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.red()) + 0.7152 * Linear(colour.green()) + 0.0722 * Linear(colour.blue());
}

// From 1 for the same lightness to 21 for black on white.
double Contrast(const QColor& a, const QColor& b) {
    const double first = Luminance(a);
    const double second = Luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QRgb MostFrequent(const QImage& image) {
    std::map<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    return std::ranges::max_element(counts, {}, &std::pair<const QRgb, int>::second)->first;
}

// Between the ground of the picture and what stands out most from it.
double ContrastIn(const QImage& image) {
    const QColor ground = MostFrequent(image);
    double most = 1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            most = std::max(most, Contrast(image.pixelColor(x, y), ground));
    return most;
}

bool ShowsText(const QWidget& control) {
    if (const auto* label = qobject_cast<const QLabel*>(&control))
        return !label->text().trimmed().isEmpty();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return !button->text().isEmpty();
    if (const auto* list = qobject_cast<const QComboBox*>(&control))
        return !list->currentText().isEmpty();
    const auto* line = qobject_cast<const QLineEdit*>(&control);
    return line != nullptr && !line->text().isEmpty() && !line->hasSelectedText(); // which has the theme's colours
}

Findings FaintText(QWidget& window) {
    Findings findings;
    const QImage picture = window.grab().toImage();
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || control->window() != &window || !ShowsText(*control))
            continue;
        // Inside the frame, which may stand out by itself.
        const QRect area = QRect(control->mapTo(&window, QPoint()), control->size()).adjusted(4, 2, -4, -2);
        const double contrast = ContrastIn(picture.copy(area.intersected(picture.rect())));
        if (contrast < (control->isEnabled() ? ReadableText : VisibleAtAll))
            findings << Place(*control) + " has a contrast of " + QString::number(contrast, 'f', 1);
    }
    return findings;
}

bool HasEdges(const QWidget& control) {
    static const std::vector<const char*> kinds = {"QCheckBox",    "QComboBox", "QLineEdit", "QPushButton",
                                                   "QRadioButton", "QSpinBox",  "ValueLabel"};
    const bool ofAKind = std::ranges::any_of(kinds, [&control](const char* kind) { return control.inherits(kind); });
    return ofAKind && !control.parentWidget()->inherits("QSpinBox"); // whose field has none
}

// The part of the control that has an edge.
QRect Outlined(const QWidget& control) {
    QStyleOptionButton option;
    option.initFrom(&control);
    if (control.inherits("QCheckBox"))
        return control.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &control);
    if (control.inherits("QRadioButton"))
        return control.style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, &control);
    return control.rect();
}

Findings FaintEdges(QWidget& window) {
    Findings findings;
    const QImage picture = window.grab().toImage();
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || control->window() != &window || !control->isEnabled() || !HasEdges(*control))
            continue;
        const QRect outlined = Outlined(*control);
        const QPoint middle = control->mapTo(&window, QPoint(outlined.left(), outlined.center().y()));
        double contrast = 1;
        for (int x = 0; x < EdgeDepth; ++x) {
            const QColor edge = picture.pixelColor(middle + QPoint(x, 0));
            contrast = std::max(contrast, Contrast(edge, window.palette().color(QPalette::Window)));
        }
        if (contrast < VisibleShape)
            findings << Place(*control) + " has an edge with a contrast of " + QString::number(contrast, 'f', 1);
    }
    return findings;
}

// The share of an icon that stands out, in a hundred.
int StandingOut(const QImage& icon, const QColor& ground) {
    int opaque = 0;
    int visible = 0;
    for (int y = 0; y < icon.height(); ++y)
        for (int x = 0; x < icon.width(); ++x)
            if (const QColor colour = icon.pixelColor(x, y); colour.alpha() > 128) {
                ++opaque;
                if (Contrast(colour, ground) >= VisibleShape)
                    ++visible;
            }
    return opaque > 0 ? 100 * visible / opaque : 0;
}

QColor Ground(const QTextFormat& format, const QColor& otherwise) {
    return format.hasProperty(QTextFormat::BackgroundBrush) ? format.background().color() : otherwise;
}

// Every piece of text of a topic on what is behind it.
Findings FaintTopics(const HelpBrowser& browser, const QString& topic) {
    Findings findings;
    const QColor base = browser.palette().color(QPalette::Base);
    const QColor text = browser.palette().color(QPalette::Text);
    for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next()) {
        QColor ground = base;
        if (const QTextTable* table = QTextCursor(block).currentTable())
            ground = Ground(table->cellAt(block.position()).format(), base);
        ground = Ground(block.blockFormat(), ground);
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            const QColor colour = format.hasProperty(QTextFormat::ForegroundBrush) ? format.foreground().color() : text;
            const double contrast = Contrast(colour, Ground(format, ground));
            if (contrast < ReadableText)
                findings << topic + ": " + part.fragment().text().left(20) + ' ' + QString::number(contrast, 'f', 1);
        }
    }
    for (const QTextEdit::ExtraSelection& mark : browser.extraSelections()) {
        const QColor ground = mark.format.background().color();
        if (Contrast(ground, mark.format.foreground().color()) < ReadableText)
            findings << topic + ": a mark hides " + mark.cursor.selectedText();
        if (Contrast(ground, base) < VisibleAtAll)
            findings << topic + ": no mark is seen on " + mark.cursor.selectedText();
    }
    return findings;
}

struct Theme {
    const char* name;
    QPalette (*palette)();
};

void PrintTo(const Theme& theme, std::ostream* output) {
    *output << theme.name;
}

class Colours : public ::testing::TestWithParam<Theme> {
protected:
    Colours() { QApplication::setPalette(GetParam().palette()); }
    ~Colours() override { QApplication::setPalette(LightPalette()); }
};

} // namespace

TEST_P(Colours, LeaveTextReadable) {
    EXPECT_EQ(FindingsOfEveryWindow(FaintText), "");
}

TEST_P(Colours, LeaveEdgesVisible) {
    EXPECT_EQ(FindingsOfEveryWindow(FaintEdges), "");
}

TEST_P(Colours, LeaveIconsVisible) {
    QDirIterator icons(":/icons");
    ASSERT_TRUE(icons.hasNext());
    while (icons.hasNext()) {
        const QImage icon(icons.next());
        for (const auto ground : {QPalette::Base, QPalette::Window})
            EXPECT_GE(StandingOut(icon, QApplication::palette().color(ground)), VisibleShare)
                << icons.fileName().toStdString();
    }
}

TEST_P(Colours, LeaveTheHelpReadable) {
    frmHelp window;
    window.show();
    auto& browser = *window.findChild<HelpBrowser*>();
    Findings findings;
    const HelpBook book;
    for (const HelpBook::Topic& topic : book.Topics()) {
        window.ShowTopic(topic.id);
        browser.Highlight({"scanner", "the"});
        findings += FaintTopics(browser, topic.id);
    }
    EXPECT_EQ(findings.join('\n').toStdString(), "");
}

INSTANTIATE_TEST_SUITE_P(Themes, Colours, ::testing::Values(Theme{"Light", LightPalette}, Theme{"Dark", DarkPalette}),
                         [](const auto& parameter) { return std::string(parameter.param.name); });
