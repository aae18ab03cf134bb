#include "widgets/DropDownList.h"

#include "profiles/NumberedError.h"
#include "support_widgets/Controls.h"

#include <QAbstractItemView>
#include <QTest>

#include <gtest/gtest.h>

#include <vector>

namespace {

class Drop : public ::testing::Test {
protected:
    Drop() {
        QObject::connect(&list_, &DropDownList::Click, &list_, [this] { clicked_.push_back(list_.ListIndex()); });
        for (const char* text : {"None", "Single-Cable", "Dual-Cable"})
            list_.AddItem(text, 1000 + list_.ListCount());
        list_.show();
    }

    DropDownList list_;
    std::vector<int> clicked_;
};

} // namespace

TEST_F(Drop, AddingItemsSelectsNothing) {
    EXPECT_EQ(list_.ListIndex(), -1);
    EXPECT_TRUE(clicked_.empty());
}

TEST_F(Drop, ChoosingByProgramRaisesClickEveryTime) {
    list_.SetListIndex(1);
    list_.SetListIndex(1);
    list_.SetListIndex(-1);
    EXPECT_EQ(clicked_, std::vector<int>({1, 1, -1}));
}

TEST_F(Drop, ChoosingByHandRaisesClickAlsoForTheSameItem) {
    Choose(list_, "Dual-Cable");
    Choose(list_, "Dual-Cable");
    EXPECT_EQ(clicked_, std::vector<int>({2, 2}));
}

TEST_F(Drop, ChoosingAsInAnyComboBoxRaisesClickOnce) {
    QComboBox& combo = list_;
    combo.setCurrentIndex(1);
    combo.setCurrentText("Dual-Cable");
    EXPECT_EQ(clicked_, std::vector<int>({1, 2}));
    Choose(list_, "Dual-Cable");
    QTest::keyClick(&list_, Qt::Key_Up);
    EXPECT_EQ(clicked_, std::vector<int>({1, 2, 2, 1}));
}

TEST_F(Drop, ShowingAnItemRaisesNothing) {
    list_.ShowListIndex(2);
    EXPECT_EQ(list_.Text(), "Dual-Cable");
    EXPECT_TRUE(clicked_.empty());
}

TEST_F(Drop, RefusesAnItemThatItDoesNotHave) {
    list_.SetListIndex(1);
    for (const int index : {3, -2}) {
        EXPECT_THROW(list_.SetListIndex(index), NumberedError);
        EXPECT_THROW(list_.ShowListIndex(index), NumberedError);
    }
    EXPECT_THROW(list_.RemoveItem(3), NumberedError);
    EXPECT_THROW(list_.RemoveItem(-1), NumberedError);
    EXPECT_EQ(list_.ListIndex(), 1);
    EXPECT_EQ(clicked_.size(), 1U);
}

TEST_F(Drop, RemovingTheSelectedItemLeavesNoSelection) {
    list_.SetListIndex(1);
    list_.RemoveItem(1);
    EXPECT_EQ(list_.ListIndex(), -1);
    EXPECT_EQ(Items(list_), QStringList({"None", "Dual-Cable"}));
    EXPECT_EQ(clicked_.size(), 1U);
}

TEST_F(Drop, RemovingAnotherItemKeepsTheSelection) {
    list_.SetListIndex(2);
    list_.RemoveItem(0);
    EXPECT_EQ(list_.Text(), "Dual-Cable");
}

TEST_F(Drop, FindsTheFirstItemThatBeginsWithATextWithoutCase) {
    EXPECT_EQ(list_.FindPrefix("d"), 2);
    EXPECT_EQ(list_.FindPrefix("SINGLE"), 1);
    EXPECT_EQ(list_.FindPrefix(""), 0);
    EXPECT_EQ(list_.FindPrefix("Cable"), -1);
}

TEST_F(Drop, WithoutASelectionTheFirstItemsDatumCounts) {
    EXPECT_EQ(list_.ItemData(-1), 1000);
    EXPECT_EQ(list_.ItemData(2), 1002);
    list_.Clear();
    EXPECT_EQ(list_.ItemData(-1), 0);
}

TEST_F(Drop, OpensAsWideAsItsLongestItem) {
    list_.setFixedWidth(60);
    list_.AddItem("A profile of the second lane behind the bakery");
    list_.showPopup();
    EXPECT_GE(list_.view()->width(), list_.fontMetrics().horizontalAdvance(list_.itemText(3)));
    list_.hidePopup();
}
