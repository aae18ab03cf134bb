// What a screen reader finds in every window.
#include "EveryWindow.h"

#include "widgets/ValueLabel.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSlider>
#include <QSpinBox>
#include <QTextBrowser>
#include <QTreeWidget>

#include <QtGui/private/qguiapplication_p.h>
#include <QtGui/qpa/qplatformaccessibility.h>
#include <QtGui/qpa/qplatformintegration.h>

#include <gtest/gtest.h>

#include <array>

namespace {

QAccessibleInterface& Interface(QObject& object) {
    return *QAccessible::queryAccessibleInterface(&object);
}

QString NameOf(QWidget& control) {
    return Interface(control).text(QAccessible::Name);
}

// Words, not what the sources call it.
bool IsPlain(const QString& name) {
    static const QRegularExpression sourceName("^(lst|cmd|chk|opt|txt|lbl|fra|img|mnu|frm|tab|tre|spn|sld|pag)[A-Z]");
    static const QRegularExpression mnemonic("&\\w");
    return !name.trimmed().isEmpty() && !sourceName.match(name).hasMatch() && !mnemonic.match(name).hasMatch();
}

// Of a kind, and of no kind that is derived from it for another purpose.
struct KindOfControl {
    const char* className;
    std::vector<QAccessible::Role> roles;
};

const std::array Kinds = {
    KindOfControl{"QCheckBox", {QAccessible::CheckBox}},
    KindOfControl{"QRadioButton", {QAccessible::RadioButton}},
    KindOfControl{"QPushButton", {QAccessible::Button}},
    KindOfControl{"QComboBox", {QAccessible::ComboBox}},
    KindOfControl{"QLineEdit", {QAccessible::EditableText}},
    KindOfControl{"QTextBrowser", {QAccessible::StaticText}},
    KindOfControl{"QPlainTextEdit", {QAccessible::EditableText}},
    KindOfControl{"QGroupBox", {QAccessible::Grouping}},
    KindOfControl{"QListWidget", {QAccessible::List}},
    KindOfControl{"QTreeWidget", {QAccessible::Tree}},
    KindOfControl{"QTabBar", {QAccessible::PageTabList}},
    KindOfControl{"QSlider", {QAccessible::Slider}},
    KindOfControl{"QSpinBox", {QAccessible::SpinBox}},
    KindOfControl{"QProgressBar", {QAccessible::ProgressBar}},
    KindOfControl{"QLabel", {QAccessible::StaticText, QAccessible::Graphic}},
    KindOfControl{"QMenu", {QAccessible::PopupMenu}},
};

// What the program placed, not what a control is made of.
QList<QWidget*> PlacedControls(QWidget& window) {
    QList<QWidget*> placed;
    for (QWidget* control : window.findChildren<QWidget*>())
        if (control->isVisible() && control->window() == &window && !control->objectName().isEmpty() &&
            !control->objectName().startsWith("qt_") && !control->objectName().startsWith("QMessageBox"))
            placed << control;
    return placed;
}

bool TakesFocus(const QWidget& control) {
    return (control.focusPolicy() & Qt::TabFocus) != 0 && control.focusProxy() == nullptr;
}

// The caption beside a field: the label that calls it its own.
QLabel* CaptionOf(const QWidget& field) {
    for (QLabel* label : field.window()->findChildren<QLabel*>())
        if (label->buddy() == &field)
            return label;
    return nullptr;
}

bool IsField(const QWidget& control) {
    return qobject_cast<const QComboBox*>(&control) != nullptr || qobject_cast<const QLineEdit*>(&control) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(&control) != nullptr ||
           qobject_cast<const QAbstractItemView*>(&control) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&control) != nullptr ||
           qobject_cast<const QAbstractSlider*>(&control) != nullptr ||
           qobject_cast<const QTextBrowser*>(&control) != nullptr ||
           qobject_cast<const ValueLabel*>(&control) != nullptr;
}

Findings WithoutPlainNames(QWidget& window) {
    Findings findings;
    if (!IsPlain(NameOf(window)))
        findings << Place(window) + " has no name: \"" + NameOf(window) + '"';
    for (QWidget* control : PlacedControls(window)) {
        const bool group = qobject_cast<QGroupBox*>(control) != nullptr ||
                           control->objectName().startsWith("fraOption_") ||
                           control->objectName().startsWith("fraWizard_");
        if ((TakesFocus(*control) || group) && !IsPlain(NameOf(*control)))
            findings << Place(*control) + " is called \"" + NameOf(*control) + '"';
    }
    return findings;
}

Findings OfAnotherRole(QWidget& window) {
    Findings findings;
    for (QWidget* control : PlacedControls(window)) {
        const auto kind = std::ranges::find_if(
            Kinds, [control](const KindOfControl& known) { return control->inherits(known.className); });
        if (kind == Kinds.end())
            continue;
        const QAccessible::Role role = Interface(*control).role();
        if (std::ranges::find(kind->roles, role) == kind->roles.end())
            findings << Place(*control) + " has the role " + QString::number(role);
    }
    return findings;
}

Findings WithoutTheirCaption(QWidget& window) {
    Findings findings;
    for (QWidget* control : PlacedControls(window)) {
        if (const auto* label = qobject_cast<QLabel*>(control);
            label != nullptr && label->text().endsWith(':') && label->buddy() == nullptr && !label->wordWrap())
            findings << Place(*control) + " is the caption of nothing";
        if (!IsField(*control))
            continue;
        QLabel* caption = CaptionOf(*control);
        // A view cannot be related to a label, so it carries the name itself.
        if (caption == nullptr || qobject_cast<QAbstractItemView*>(control) != nullptr) {
            if (control->accessibleName().isEmpty())
                findings << Place(*control) + " has neither a caption nor a name";
            continue;
        }
        const auto relations = Interface(*control).relations(QAccessible::Label);
        if (!std::ranges::any_of(relations,
                                 [caption](const auto& relation) { return relation.first->object() == caption; }))
            findings << Place(*control) + " is not related to its caption " + Place(*caption);
    }
    return findings;
}

Findings WithAnUntoldState(QWidget& window) {
    Findings findings;
    for (QWidget* control : PlacedControls(window)) {
        const QAccessible::State state = Interface(*control).state();
        if (bool(state.disabled) == control->isEnabled())
            findings << Place(*control) + " does not tell whether it is enabled";
        if (const auto* button = qobject_cast<QAbstractButton*>(control);
            button != nullptr && button->isCheckable() && bool(state.checked) != button->isChecked())
            findings << Place(*control) + " does not tell whether it is chosen";
        if (const auto* line = qobject_cast<QLineEdit*>(control);
            line != nullptr && bool(state.readOnly) != line->isReadOnly())
            findings << Place(*control) + " does not tell whether it can be changed";
        if (const auto* text = qobject_cast<QPlainTextEdit*>(control);
            text != nullptr && bool(state.readOnly) != text->isReadOnly())
            findings << Place(*control) + " does not tell whether it can be changed";
        if (TakesFocus(*control) && control->isEnabled() && !state.focusable)
            findings << Place(*control) + " does not tell that it takes the focus";
    }
    return findings;
}

// A picture tells something and says what, or is there for its looks and says nothing.
Findings WithPicturesHalfDescribed(QWidget& window) {
    Findings findings;
    for (QWidget* control : PlacedControls(window)) {
        const auto* label = qobject_cast<QLabel*>(control);
        if (label == nullptr || label->pixmap().isNull())
            continue;
        if (label->accessibleName().isEmpty() != label->accessibleDescription().isEmpty())
            findings << Place(*control) + " needs both a name and a description, or neither";
        if (TakesFocus(*control))
            findings << Place(*control) + " is a picture that takes the focus";
    }
    return findings;
}

Findings WithItemsWithoutText(QWidget& window) {
    Findings findings;
    const auto look = [&findings](QAbstractItemView& view) {
        for (int row = 0; row < view.model()->rowCount(); ++row)
            if (view.model()->index(row, 0).data(Qt::AccessibleTextRole).toString().isEmpty() &&
                view.model()->index(row, 0).data(Qt::DisplayRole).toString().isEmpty())
                findings << Place(view) + " has an item without text";
    };
    for (QWidget* control : PlacedControls(window)) {
        if (auto* view = qobject_cast<QAbstractItemView*>(control)) {
            look(*view);
            QAccessibleInterface& list = Interface(*view);
            for (int i = 0; i < list.childCount(); ++i)
                if (const QAccessibleInterface* item = list.child(i);
                    item != nullptr && item->role() == QAccessible::ListItem && !IsPlain(item->text(QAccessible::Name)))
                    findings << Place(*view) + " has an item without a name";
        }
        if (auto* list = qobject_cast<QComboBox*>(control))
            look(*list->view());
    }
    if (const auto* menu = qobject_cast<QMenu*>(&window))
        for (const QAction* action : menu->actions())
            if (!action->isSeparator() && action->text().isEmpty())
                findings << Place(*action) + " has no text";
    return findings;
}

Findings WithOptionsOutsideAGroup(QWidget& window) {
    Findings findings;
    for (QWidget* control : PlacedControls(window))
        if (qobject_cast<QRadioButton*>(control) != nullptr) {
            const auto* group = qobject_cast<QGroupBox*>(control->parentWidget());
            if (group == nullptr || group->title().isEmpty())
                findings << Place(*control) + " belongs to no group";
        }
    return findings;
}

std::vector<std::pair<QObject*, QAccessible::Event>>* heard = nullptr;

void Hear(QAccessibleEvent* event) {
    if (heard != nullptr && event->object() != nullptr)
        heard->emplace_back(event->object(), event->type());
}

// Whatever a label comes to show is read out.
Findings WithTextsThatChangeInSilence(QWidget& window) {
    Findings findings;
    std::vector<std::pair<QObject*, QAccessible::Event>> events;
    const QAccessible::UpdateHandler before = QAccessible::installUpdateHandler(Hear);
    heard = &events;
    for (QWidget* control : PlacedControls(window)) {
        auto* label = qobject_cast<QLabel*>(control);
        if (label == nullptr || !label->pixmap().isNull())
            continue;
        const QString text = label->text();
        events.clear();
        label->setText(text + "changed");
        if (std::ranges::find(events, std::pair<QObject*, QAccessible::Event>(label, QAccessible::NameChanged)) ==
            events.end())
            findings << Place(*label) + " changes in silence";
        if (NameOf(*label) != QString(label->text()).remove('&') && label->buddy() == nullptr)
            findings << Place(*label) + " is read as \"" + NameOf(*label) + '"';
        label->setText(text);
    }
    heard = nullptr;
    QAccessible::installUpdateHandler(before);
    return findings;
}

// What a message box says is part of it.
Findings BoxesThatKeepTheirText(QWidget& window) {
    if (!window.inherits("QMessageBox"))
        return {};
    const QString text = window.property("text").toString();
    QAccessibleInterface& box = Interface(window);
    for (int i = 0; i < box.childCount(); ++i)
        if (const QAccessibleInterface* child = box.child(i);
            child->role() == QAccessible::StaticText && child->text(QAccessible::Name) == text)
            return {};
    return {"the box does not say \"" + text + '"'};
}

class ScreenReader : public ::testing::Test {
protected:
    // As a screen reader does when it is started; without one, nothing is told.
    ScreenReader() { QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true); }
};

} // namespace

TEST_F(ScreenReader, FindsAPlainNameForEveryControl) {
    EXPECT_EQ(FindingsOfEveryWindow(WithoutPlainNames), "");
}

TEST_F(ScreenReader, IsToldWhatEachControlIs) {
    EXPECT_EQ(FindingsOfEveryWindow(OfAnotherRole), "");
}

TEST_F(ScreenReader, FindsTheCaptionOfEveryField) {
    EXPECT_EQ(FindingsOfEveryWindow(WithoutTheirCaption), "");
}

TEST_F(ScreenReader, IsToldTheStateOfEveryControl) {
    EXPECT_EQ(FindingsOfEveryWindow(WithAnUntoldState), "");
}

TEST_F(ScreenReader, FindsPicturesThatTellSomethingDescribed) {
    EXPECT_EQ(FindingsOfEveryWindow(WithPicturesHalfDescribed), "");
}

TEST_F(ScreenReader, ReadsEveryItemOfAList) {
    EXPECT_EQ(FindingsOfEveryWindow(WithItemsWithoutText), "");
}

TEST_F(ScreenReader, FindsOptionsInAGroup) {
    EXPECT_EQ(FindingsOfEveryWindow(WithOptionsOutsideAGroup), "");
}

TEST_F(ScreenReader, HearsTextsThatChange) {
    EXPECT_EQ(FindingsOfEveryWindow(WithTextsThatChangeInSilence), "");
}

TEST_F(ScreenReader, ReadsMessageBoxes) {
    EXPECT_EQ(FindingsOfEveryWindow(BoxesThatKeepTheirText), "");
}
