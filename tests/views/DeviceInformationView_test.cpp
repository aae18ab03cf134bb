#include "views/DeviceInformationView.h"

#include "views/TestSite.h"

#include <QEvent>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using Calls = std::vector<std::string>;

class DeviceInformation : public ::testing::Test {
protected:
    DeviceInformation() {
        page_.NameLists()[0]->AddItem("Lane");
        page_.NameLists()[0]->AddItem("Other");
        page_.show();
    }

    [[nodiscard]] QStringList Values() const {
        return {c_.Text("lblInfoDeviceName"),    c_.Text("lblInfoDeviceDescription"), c_.Text("lblInfoSOVersion"),
                c_.Text("lblInfoSODescription"), c_.Text("lblInfoCOVersion"),         c_.Text("lblInfoCODescription")};
    }

    ScriptedControls controls_;
    DeviceInformationView page_{controls_};
    PageControls c_{page_};
    ScriptedScanner& scanner_ = *controls_.scanners.at(0);
    ScriptedScale& scale_ = *controls_.scales.at(0);
};

} // namespace

TEST_F(DeviceInformation, ChoosingAClassShowsItsFirstProfileWithoutClaimingIt) {
    page_.SelectFirstDeviceType();
    EXPECT_EQ(scanner_.calls, (Calls{"Open Lane", "Close"}));
    EXPECT_EQ(Values(), (QStringList{"Lane", "Scripted device", "1.008.001", "Scripted service object", "1.008.000",
                                     "Scripted control object"}));
    c_.ExpectUniqueMnemonics();
}

TEST_F(DeviceInformation, CaptionsSayWhatEachControlIs) {
    const std::vector<std::pair<const char*, QString>> captions = {
        {"lblInfoDeviceType", "Device Class:"},
        {"lblInfoDeviceName_0", "Profile Name:"},
        {"lblInfoDeviceName_1", "Profile Name:"},
        {"lblInfoDeviceNameCaption", "Device Name:"},
        {"lblInfoDeviceDescriptionCaption", "Device Description:"},
        {"lblInfoSOVersionCaption", "Service Object Version:"},
        {"lblInfoSODescriptionCaption", "Service Object Description:"},
        {"lblInfoCOVersionCaption", "Control Object Version:"},
        {"lblInfoCODescriptionCaption", "Control Object Description:"},
    };
    for (const auto& [name, text] : captions)
        EXPECT_EQ(c_.Text(name), text);
}

TEST_F(DeviceInformation, ChoosingAProfileShowsIt) {
    page_.SelectFirstDeviceType();
    Choose(c_.List("lstInfoDeviceName_0"), "Other");
    EXPECT_EQ(c_.Text("lblInfoDeviceName"), "Other");
}

TEST_F(DeviceInformation, AFailedOpenIsShownBesideTheControlObjectAndNotClosed) {
    scanner_.openResult = OposOpenResult::BadProgId;
    page_.SelectFirstDeviceType();
    EXPECT_EQ(scanner_.calls, Calls{"Open Lane"});
    EXPECT_EQ(Values(),
              (QStringList{"Unable to open device (303)", "", "", "", "1.008.000", "Scripted control object"}));
}

TEST_F(DeviceInformation, AClassWithoutProfilesShowsNothing) {
    page_.SelectFirstDeviceType();
    Choose(c_.List("lstInfoDeviceType"), "Scale");
    EXPECT_EQ(Values(), (QStringList{"", "", "", "", "", ""}));
    EXPECT_TRUE(scale_.calls.empty());
}

TEST_F(DeviceInformation, TheClassDecidesWhichListOfProfilesIsShown) {
    EXPECT_FALSE(IsShown(c_.List("lstInfoDeviceName_0")));
    EXPECT_FALSE(IsShown(c_.List("lstInfoDeviceName_1")));
    for (const bool scanner : {true, false}) {
        Choose(c_.List("lstInfoDeviceType"), scanner ? "Scanner" : "Scale");
        for (const char* family : {"lstInfoDeviceName", "lblInfoDeviceName"}) {
            EXPECT_EQ(IsShown(Control<QWidget>(page_, QString(family) + "_0")), scanner) << family;
            EXPECT_EQ(IsShown(Control<QWidget>(page_, QString(family) + "_1")), !scanner) << family;
        }
    }
}

TEST_F(DeviceInformation, TheClearedPageIsPaintedBeforeADeviceIsOpened) {
    page_.SelectFirstDeviceType();
    struct PaintedText : QObject {
        explicit PaintedText(QLabel& shown) : label(shown) { label.installEventFilter(this); }
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint)
                text = label.text();
            return false;
        }
        QLabel& label;
        QString text = "nothing yet";
    } painted(c_.Label("lblInfoDeviceName"));
    QString beforeOpening;
    scanner_.onOpen = [&] { beforeOpening = painted.text; };
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&page_));
    Choose(c_.List("lstInfoDeviceName_0"), "Other");
    EXPECT_EQ(beforeOpening, "");
}

TEST_F(DeviceInformation, AScaleIsAskedByItsOwnControl) {
    page_.NameLists()[1]->AddItem("Scale");
    Choose(c_.List("lstInfoDeviceType"), "Scale");
    EXPECT_EQ(scale_.calls, (Calls{"Open Scale", "Close"}));
    EXPECT_TRUE(scanner_.calls.empty());
}

TEST_F(DeviceInformation, AListThatIsNotShownLeavesThePageAlone) {
    page_.NameLists()[1]->AddItem("Scale");
    Choose(c_.List("lstInfoDeviceType"), "Scale");
    page_.NameLists()[0]->SetListIndex(0); // as after the deletion of a scanner profile
    EXPECT_EQ(c_.Text("lblInfoDeviceName"), "Scale");
    EXPECT_TRUE(scanner_.calls.empty());
}

TEST_F(DeviceInformation, WithoutASelectionNothingIsOpened) {
    page_.SelectFirstDeviceType();
    scanner_.calls.clear();
    c_.List("lstInfoDeviceName_0").SetListIndex(-1);
    EXPECT_EQ(Values(), (QStringList{"", "", "", "", "", ""}));
    c_.List("lstInfoDeviceType").SetListIndex(-1);
    EXPECT_TRUE(scanner_.calls.empty());
}
