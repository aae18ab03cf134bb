#include "support_widgets/Controls.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QRadioButton>
#include <QStringList>
#include <QTest>

namespace {

constexpr int WaitLimitMs = 10000;

// A box takes clicks on itself and its text alone, though the control may be wider.
QPoint PlaceOfClick(const QWidget& button) {
    if (qobject_cast<const QCheckBox*>(&button) != nullptr || qobject_cast<const QRadioButton*>(&button) != nullptr)
        return {button.height() / 2, button.height() / 2};
    return button.rect().center();
}

} // namespace

QString ControlNames(const QWidget& window) {
    QStringList names;
    for (const QObject* child : window.findChildren<QObject*>())
        if (!child->objectName().isEmpty() && !child->objectName().startsWith("qt_"))
            names << child->objectName();
    names.sort();
    return names.join(' ');
}

bool IsShown(const QWidget& control) {
    return !control.isHidden();
}

void Choose(DropDownList& list, int index) {
    if (!list.isEnabled() || list.isHidden())
        throw std::runtime_error(("no user can choose in " + list.objectName()).toStdString());
    if (index < 0 || index >= list.count())
        throw std::runtime_error((list.objectName() + " has no such item").toStdString());
    list.showPopup();
    list.view()->setCurrentIndex(list.model()->index(index, list.modelColumn(), list.rootModelIndex()));
    QTest::keyClick(list.view(), Qt::Key_Return);
}

void Choose(DropDownList& list, const QString& text) {
    Choose(list, list.findText(text));
}

void Click(QWidget& button) {
    if (!button.isEnabled() || button.isHidden())
        throw std::runtime_error(("no user can click " + button.objectName()).toStdString());
    QTest::mouseClick(&button, Qt::LeftButton, {}, PlaceOfClick(button));
}

QStringList Items(const DropDownList& list) {
    QStringList texts;
    for (int i = 0; i < list.count(); ++i)
        texts << list.itemText(i);
    return texts;
}

bool WaitUntil(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, WaitLimitMs);
}
