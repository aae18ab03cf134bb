// The windows look as if one hand had made them, at any size of text, and nothing in them is cut off.
#include "EveryWindow.h"

#include "widgets/ValueLabel.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTabBar>

#include <gtest/gtest.h>

#include <map>

namespace {

// What a window may take of a screen, without the task bar and its own title bar.
constexpr int BarsHeight = 40 + 32;
constexpr QSize SmallTill(1024, 768 - BarsHeight);
constexpr QSize EnlargedTill(1366 * 100 / 125, 768 * 100 / 125 - BarsHeight);

constexpr int ListSlack = 3; // between the text and the arrow, which a list may do without
constexpr int FarthestField = 40;
constexpr int NarrowestButton = 80;
constexpr int ButtonPadding = 8; // on either side

template<typename T>
QList<T*> Shown(QWidget& window) {
    QList<T*> shown;
    for (T* control : window.findChildren<T*>())
        if (control->isVisible() && control->window() == &window)
            shown << control;
    return shown;
}

QRect Area(const QWidget& control, const QWidget& window) {
    return {control.mapTo(&window, QPoint()), control.size()};
}

QString Size(const QSize& size) {
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

bool ShowsWhatUsersCallThings(const QComboBox& list) {
    return list.objectName().contains("DeviceName");
}

// Of a spin box.
bool IsPart(const QLineEdit& line) {
    return line.objectName().startsWith("qt_");
}

// Room for the longest item.
QSize Needed(const QComboBox& list) {
    QStyleOptionComboBox option;
    option.initFrom(&list);
    int width = 0;
    for (int i = 0; i < list.count(); ++i)
        width = std::max(width, list.fontMetrics().horizontalAdvance(list.itemText(i)));
    return list.style()->sizeFromContents(QStyle::CT_ComboBox, &option,
                                          QSize(width - ListSlack, list.fontMetrics().height()), &list);
}

Findings CutOff(QWidget& window) {
    Findings findings;
    const auto expect = [&findings](const QWidget& control, const QSize& needed) {
        if (control.width() < needed.width() || control.height() < needed.height())
            findings << Place(control) + " is cut off: " + Size(control.size()) + ", needs " + Size(needed);
    };
    for (const QLabel* label : Shown<QLabel>(window)) {
        if (const auto* value = qobject_cast<const ValueLabel*>(label))
            expect(*value, value->minimumSizeHint());
        else if (label->wordWrap())
            expect(*label, {0, label->heightForWidth(label->width())});
        else
            expect(*label, label->sizeHint());
    }
    for (const QAbstractButton* button : Shown<QAbstractButton>(window))
        if (!button->text().isEmpty())
            expect(*button, button->minimumSizeHint());
    for (const QGroupBox* group : Shown<QGroupBox>(window))
        expect(*group, group->minimumSizeHint());
    for (const QComboBox* list : Shown<QComboBox>(window))
        if (!ShowsWhatUsersCallThings(*list))
            expect(*list, Needed(*list));
    for (const QLineEdit* line : Shown<QLineEdit>(window))
        if (!IsPart(*line))
            expect(*line, {0, line->sizeHint().height()});
    for (const QTabBar* tabs : Shown<QTabBar>(window))
        expect(*tabs, tabs->minimumSizeHint());
    return findings;
}

Findings TooLargeForTills(QWidget& window) {
    Findings findings;
    for (const QSize& screen : {SmallTill, EnlargedTill})
        if (const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
            least.width() > screen.width() || least.height() > screen.height())
            findings << Place(window) + " needs " + Size(least) + ", the screen has " + Size(screen);
    if (const QSize screen = SmallTill; window.width() > screen.width() || window.height() > screen.height())
        findings << Place(window) + " takes " + Size(window.size()) + ", the screen has " + Size(screen);
    return findings;
}

// Controls that stand in a row of text.
Findings UnevenControls(QWidget& window) {
    Findings findings;
    std::map<QString, std::pair<int, QString>> heights;
    const auto note = [&](const QString& kind, const QWidget& control) {
        const auto [known, isNew] = heights.emplace(kind, std::pair(control.height(), Place(control)));
        if (!isNew && known->second.first != control.height())
            findings << Place(control) + " is " + QString::number(control.height()) + " high, " + known->second.second +
                            " is " + QString::number(known->second.first);
    };
    for (const QPushButton* button : Shown<QPushButton>(window)) {
        note("buttons", *button);
        if (button->width() < NarrowestButton)
            findings << Place(*button) + " is narrower than other buttons: " + QString::number(button->width());
        const int caption = button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width();
        if (button->width() < caption + 2 * ButtonPadding)
            findings << Place(*button) + " is filled by its caption";
    }
    for (const QComboBox* list : Shown<QComboBox>(window))
        note("lists", *list);
    for (const QLineEdit* line : Shown<QLineEdit>(window))
        if (!IsPart(*line))
            note("fields", *line);
    for (const QCheckBox* box : Shown<QCheckBox>(window))
        note("check boxes", *box);
    for (const QRadioButton* option : Shown<QRadioButton>(window))
        note("options", *option);
    return findings;
}

// A caption stands near its field, beside the middle of it.
Findings CrookedCaptions(QWidget& window) {
    Findings findings;
    for (const QLabel* label : Shown<QLabel>(window)) {
        const QWidget* field = label->buddy();
        if (field == nullptr || !field->isVisible())
            continue;
        const QRect caption = Area(*label, window);
        const QRect value = Area(*field, window);
        const bool beside = caption.right() < value.left();
        if (beside && std::abs(caption.center().y() - value.center().y()) > 1)
            findings << Place(*label) + " does not stand beside the middle of " + Place(*field);
        if (beside && value.left() - caption.right() > FarthestField)
            findings << Place(*label) + " is far from " + Place(*field);
    }
    return findings;
}

const QWidget* ShownPage(const QWidget& window) {
    for (const QWidget* page : window.findChildren<QWidget*>())
        if (page->objectName().startsWith("fraOption_") && page->isVisible())
            return page;
    return nullptr;
}

// Where the same things stand on every page of the main window.
std::map<QString, QRect> Landmarks(QWidget& window) {
    std::map<QString, QRect> landmarks;
    const QWidget* page = ShownPage(window);
    if (page == nullptr)
        return landmarks;
    for (const QLabel* label : page->findChildren<QLabel*>())
        if (label->objectName().endsWith("Heading"))
            landmarks["the heading"] = Area(*label, window);
    if (const QLayout* layout = page->layout()) {
        const QMargins margins = layout->contentsMargins();
        landmarks["the margins"] = QRect(margins.left(), margins.top(), margins.right(), margins.bottom());
        landmarks["the spacing"] = QRect(0, 0, layout->spacing(), 0);
    }
    const bool edits = page->objectName() == "fraOption_0" || page->objectName() == "fraOption_1";
    for (const QLabel* label : page->findChildren<QLabel*>())
        if (edits && label->isVisible() && label->buddy() != nullptr) {
            const QRect field = Area(*label->buddy(), window);
            landmarks["the captions of editing"] = QRect(Area(*label, window).left(), 0, label->width(), 0);
            landmarks["the fields of editing"] = QRect(field.left(), 0, field.width(), 0);
        }
    for (const QLabel* label : page->findChildren<QLabel*>())
        if (edits && label->objectName().endsWith("ModelPicture"))
            landmarks["the picture"] = Area(*label, window);
    for (const QPushButton* button : page->findChildren<QPushButton*>())
        if (edits && button->objectName().endsWith("Save"))
            landmarks["Save"] = Area(*button, window);
        else if (edits && button->objectName().endsWith("Program"))
            landmarks["Program"] = Area(*button, window);
    return landmarks;
}

class Looks : public ::testing::TestWithParam<int> {
protected:
    // Text of the size, in a hundredth of the usual one.
    Looks() : usual_(QApplication::font()) {
        QFont font = usual_;
        font.setPointSizeF(font.pointSizeF() * GetParam() / 100);
        QApplication::setFont(font);
    }
    ~Looks() override { QApplication::setFont(usual_); }

private:
    QFont usual_;
};

} // namespace

TEST_P(Looks, AreWholeAndEven) {
    EXPECT_EQ(FindingsOfEveryWindow(
                  [](QWidget& window) { return CutOff(window) + UnevenControls(window) + CrookedCaptions(window); }),
              "");
}

INSTANTIATE_TEST_SUITE_P(Text, Looks, ::testing::Values(100, 150, 200),
                         [](const auto& parameter) { return std::to_string(parameter.param) + "Percent"; });

TEST(Pages, FitTheScreensOfTills) {
    EXPECT_EQ(FindingsOfEveryWindow(TooLargeForTills), "");
}

TEST(Pages, HaveTheSameThingsInTheSamePlaces) {
    std::map<QString, std::pair<QRect, QString>> places;
    EXPECT_EQ(FindingsOfEveryWindow([&places](QWidget& window) {
                  Findings findings;
                  for (const auto& [name, area] : Landmarks(window)) {
                      const QString page = Place(*ShownPage(window));
                      const auto [known, isNew] = places.emplace(name, std::pair(area, page));
                      const QRect& before = known->second.first;
                      if (before.topLeft() != area.topLeft() || (name != "the heading" && before != area))
                          findings << QStringLiteral("%1 of %2 at %3,%4 %5 is at %6,%7 %8 on %9")
                                          .arg(name, page)
                                          .arg(area.x())
                                          .arg(area.y())
                                          .arg(Size(area.size()))
                                          .arg(before.x())
                                          .arg(before.y())
                                          .arg(Size(before.size()), known->second.second);
                  }
                  return findings;
              }),
              "");
}
