#include "widgets/DropDownList.h"

#include "profiles/NumberedError.h"

#include <QAbstractItemView>
#include <QScrollBar>
#include <QSignalBlocker>

#include <utility>

DropDownList::DropDownList(QWidget* parent) : QComboBox(parent) {
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(16);
    connect(this, &QComboBox::currentIndexChanged, this, [this] {
        clicked_ = true;
        emit Click();
    });
    // Comes of a user's choice alone, behind the change if it was one.
    connect(this, &QComboBox::activated, this, [this] {
        if (!std::exchange(clicked_, false))
            emit Click();
    });
}

void DropDownList::AddItem(const QString& text, int datum) {
    // A combo box selects the first item that is added to it; this list leaves the choice to its user.
    const int selected = currentIndex();
    const QSignalBlocker blocker(this);
    addItem(text, datum);
    setCurrentIndex(selected);
}

void DropDownList::AddItems(std::span<const std::string_view> texts) {
    for (const std::string_view text : texts)
        AddItem(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

void DropDownList::RemoveItem(int index) {
    if (index < 0 || index >= count())
        throw NumberedError(ErrorNumber::InvalidArgument, objectName().toStdString() + " has no such item");
    const QSignalBlocker blocker(this);
    if (index == currentIndex())
        setCurrentIndex(-1);
    removeItem(index);
}

void DropDownList::Clear() {
    const QSignalBlocker blocker(this);
    clear();
}

int DropDownList::ItemData(int index) const {
    return itemData(index < 0 ? 0 : index).toInt();
}

void DropDownList::SetListIndex(int index) {
    ShowListIndex(index);
    emit Click();
}

void DropDownList::ShowListIndex(int index) {
    CheckIndex(index);
    const QSignalBlocker blocker(this);
    setCurrentIndex(index);
}

void DropDownList::showPopup() {
    clicked_ = false;
    view()->setMinimumWidth(view()->sizeHintForColumn(modelColumn()) + view()->verticalScrollBar()->sizeHint().width());
    QComboBox::showPopup();
}

int DropDownList::FindPrefix(const QString& text) const {
    for (int i = 0; i < count(); ++i)
        if (itemText(i).startsWith(text, Qt::CaseInsensitive))
            return i;
    return -1;
}

void DropDownList::CheckIndex(int index) const {
    if (index < -1 || index >= count())
        throw NumberedError(ErrorNumber::InvalidPropertyValue,
                            objectName().toStdString() + " has no item " + std::to_string(index));
}
