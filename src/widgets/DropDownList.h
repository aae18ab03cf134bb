// A drop-down list in which choosing an item by program is the same as choosing it by hand: both raise Click, also
// where the program takes it for any combo box.
#pragma once

#include <QComboBox>
#include <QString>

#include <span>
#include <string_view>

class DropDownList : public QComboBox {
    Q_OBJECT

public:
    explicit DropDownList(QWidget* parent = nullptr);

    // Appends an item; datum is what ItemData gives for it. Never changes the selection.
    void AddItem(const QString& text, int datum = 0);
    void AddItems(std::span<const std::string_view> texts);
    // Removes the item; a removed selection leaves no selection and raises no Click.
    void RemoveItem(int index);
    void Clear();

    [[nodiscard]] int ListCount() const { return count(); }
    // -1 for no selection.
    [[nodiscard]] int ListIndex() const { return currentIndex(); }
    [[nodiscard]] QString Text() const { return currentText(); }
    // The datum of the item; of the first one when index is -1 and there are items, else 0.
    [[nodiscard]] int ItemData(int index) const;

    // Selects the item, -1 for none, and raises Click, also where it was selected already. Errors: NumberedError
    // InvalidPropertyValue outside -1 to ListCount - 1.
    void SetListIndex(int index);
    // The same without a Click, for a list that mirrors something and does not set it.
    void ShowListIndex(int index);
    // The first item that begins with text, without regard to case; -1 for none.
    [[nodiscard]] int FindPrefix(const QString& text) const;

    // Opens as wide as its longest item, which may be longer than there is room for in the window.
    void showPopup() override;

signals:
    void Click();

private:
    void CheckIndex(int index) const;

    bool clicked_ = false; // for the choice that is under way
};
