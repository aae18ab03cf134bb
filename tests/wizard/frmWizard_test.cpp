#include "WizardFixture.h"

#include "profiles/ModelCatalogue.h"
#include "profiles/NumberedError.h"
#include "widgets/ModelPicture.h"

#include <QCheckBox>

TEST_F(Wizard, OpensOnTheWelcomePage) {
    auto& window = Open();
    EXPECT_EQ(wizard_->windowTitle(), "Ravlin Configuration Wizard");
    EXPECT_EQ(window.Page(), WizardPage::Welcome);
    EXPECT_EQ(window.List("lstModelNumber").ListIndex(), 0);
    EXPECT_EQ(window.List("lstScaleType").ListIndex(), 0);
    EXPECT_TRUE(window.Widget("cmdNext").hasFocus());
}

TEST_F(Wizard, ButtonsGoWithThePages) {
    auto& window = Open();
    const auto buttons = [&window] {
        QString shown;
        for (const char* name : {"cmdBack", "cmdNext", "cmdFinish", "chkStartup"})
            if (window.Sees(name))
                shown += QString(name) + ' ';
        return shown.trimmed();
    };
    EXPECT_EQ(buttons(), "cmdNext chkStartup");
    window.Next();
    EXPECT_EQ(buttons(), "cmdBack cmdNext");
    Choose(window.List("lstModelNumber"), "Pelerin/3172");
    window.Next();
    EXPECT_EQ(buttons(), "cmdBack cmdNext");
    Choose(window.List("lstScaleType"), 2);
    window.Next();
    EXPECT_EQ(buttons(), "cmdBack cmdNext");
    window.TypeNames("Lane", "LaneScale");
    window.Next();
    EXPECT_EQ(window.Page(), WizardPage::TestScanner);
    EXPECT_EQ(buttons(), "cmdBack cmdNext");
    window.Next();
    EXPECT_EQ(buttons(), "cmdBack cmdNext");
    window.Next();
    EXPECT_EQ(window.Page(), WizardPage::Finished);
    EXPECT_EQ(buttons(), "cmdBack cmdFinish");
}

TEST_F(Wizard, PutsTheFocusWhereItsUserGoesOn) {
    auto& window = Open();
    window.Next();
    EXPECT_TRUE(window.Widget("lstModelNumber").hasFocus());
    Choose(window.List("lstModelNumber"), "Pelerin/3172");
    window.Next();
    EXPECT_TRUE(window.Widget("lstScaleType").hasFocus());
    for (int scaleType = 0; scaleType < 3; ++scaleType) {
        Choose(window.List("lstScaleType"), scaleType);
        window.Next();
        EXPECT_TRUE(window.Widget(window.Element("txtScannerName")).hasFocus());
        window.Back();
    }
}

TEST_F(Wizard, AsksForTheScaleTypeOfScaleCapableModelsOnly) {
    for (const CatalogueEntry& entry : ModelCatalogue) {
        const bool capable = entry.label == "Pelerin/3256" || entry.label == "Pelerin/3172";
        auto& window = Open();
        window.Next();
        Choose(window.List("lstModelNumber"), entry.label.data());
        window.Next();
        EXPECT_EQ(window.Page(), capable ? WizardPage::ScaleType : WizardPage::Options) << entry.label;
        window.Back();
        EXPECT_EQ(window.Page(), WizardPage::SelectScanner) << entry.label;
    }
}

TEST_F(Wizard, BackGoesOverThePagesThatWereShown) {
    auto& window = OpenAtScaleTest();
    window.Next();
    EXPECT_EQ(window.Page(), WizardPage::Finished);
    const std::vector<int> before = {WizardPage::TestScale, WizardPage::TestScanner,   WizardPage::Options,
                                     WizardPage::ScaleType, WizardPage::SelectScanner, WizardPage::Welcome};
    for (const int page : before) {
        window.Back();
        EXPECT_EQ(window.Page(), page);
    }
}

TEST_F(Wizard, WithoutScaleThereIsNoScaleToTest) {
    auto& window = OpenAtScannerTest(0);
    window.Next();
    EXPECT_EQ(window.Page(), WizardPage::Finished);
    window.Back();
    EXPECT_EQ(window.Page(), WizardPage::TestScanner);
}

TEST_F(Wizard, BackFromTheScannerTestLeadsToTheOptionsAsTheyWere) {
    auto& window = OpenAtScannerTest(1);
    EXPECT_EQ(sessions_, 1);
    window.Back();
    EXPECT_EQ(window.Page(), WizardPage::Options);
    EXPECT_EQ(Control<QLineEdit>(*wizard_, "txtScannerName_1").text(), "Lane");
    EXPECT_TRUE(window.Widget("cmdNext").isEnabled());
    EXPECT_EQ(sessions_, 1);
}

TEST_F(Wizard, ComingFromTheWelcomePageStartsWithTheFirstModel) {
    auto& window = Open();
    window.GoToOptions("Pelerin/3256");
    window.Back();
    window.Back();
    EXPECT_EQ(window.List("lstModelNumber").Text(), "Pelerin/3256");
    window.Back();
    window.Next();
    EXPECT_EQ(window.List("lstModelNumber").ListIndex(), 0);
    EXPECT_EQ(ShownModelPicture(Control<QLabel>(*wizard_, "imgModelPicture")), 1019);
}

TEST_F(Wizard, ModelWithoutScaleDropsTheScaleTypeOfTheOneBefore) {
    auto& window = Open();
    window.GoToOptions("Pelerin/3256", 2);
    window.Back();
    window.Back();
    Choose(window.List("lstModelNumber"), "7346");
    window.Next();
    EXPECT_EQ(window.Page(), WizardPage::Options);
    EXPECT_EQ(window.List("lstScaleType").ListIndex(), 0);
    EXPECT_EQ(window.Frame(), 0);
}

TEST_F(Wizard, ModelWithAScaleKeepsTheScaleTypeOnTheWayForward) {
    auto& window = Open();
    window.GoToOptions("Pelerin/3256", 2);
    window.Back();
    window.Back();
    Choose(window.List("lstModelNumber"), "Pelerin/3172");
    window.Next();
    EXPECT_EQ(window.List("lstScaleType").ListIndex(), 2);
    window.Next();
    EXPECT_EQ(window.Frame(), 2);
}

TEST_F(Wizard, OptionsAreResetOnTheWayForward) {
    auto& window = Open();
    window.GoToOptions("Pelerin/3256", 2);
    window.TypeNames("Lane", "LaneScale");
    for (const char* name :
         {"lstScannerComPort", "lstScaleComPort", "lstWeightUnit", "lstScaleDisplay", "lstInterface"})
        Choose(window.List(window.Element(name)), 1);
    window.Back();
    window.Next();
    EXPECT_FALSE(window.Widget("cmdNext").isEnabled());
    for (int i = 0; i < 3; ++i) {
        const QString element = QStringLiteral("_%1").arg(i);
        for (const char* name :
             {"lstScannerComPort", "lstScaleComPort", "lstWeightUnit", "lstScaleDisplay", "lstInterface"})
            EXPECT_EQ(window.List(name + element).ListIndex(), 0) << name;
        EXPECT_EQ(Control<QLineEdit>(*wizard_, "txtScannerName" + element).text(), "");
        EXPECT_EQ(Control<QLineEdit>(*wizard_, "txtScaleName" + element).text(), "");
        EXPECT_TRUE(window.Widget("lstScannerComPort" + element).isEnabled());
    }
}

TEST_F(Wizard, OnlyASerialScannerHasAPort) {
    for (int scaleType = 0; scaleType < 3; ++scaleType) {
        auto& window = Open();
        window.GoToOptions("Pelerin/3256", scaleType);
        for (const int interfaceIndex : {1, 0, 2}) {
            Choose(window.List(window.Element("lstInterface")), interfaceIndex);
            EXPECT_EQ(window.Widget(window.Element("lstScannerComPort")).isEnabled(), interfaceIndex == 0);
        }
    }
}

TEST_F(Wizard, WithoutScaleTheScannersNameIsEnoughForNext) {
    auto& window = Open();
    window.GoToOptions("7346");
    for (const auto& [name, enough] : std::vector<std::pair<const char*, bool>>{
             {"", false}, {"   ", false}, {"a", true}, {" a", true}, {"", false}}) {
        window.Type("txtScannerName_0", name);
        EXPECT_EQ(window.Widget("cmdNext").isEnabled(), enough) << '"' << name << '"';
    }
}

TEST_F(Wizard, WithAScaleBothNamesAreNeededForNext) {
    for (const int scaleType : {1, 2}) {
        auto& window = Open();
        window.GoToOptions("Pelerin/3172", scaleType);
        const auto& next = window.Widget("cmdNext");
        EXPECT_FALSE(next.isEnabled());
        window.Type(window.Element("txtScannerName"), "Lane");
        EXPECT_FALSE(next.isEnabled());
        window.Type(window.Element("txtScaleName"), " ");
        EXPECT_FALSE(next.isEnabled());
        window.Type(window.Element("txtScaleName"), "Scale");
        EXPECT_TRUE(next.isEnabled());
        window.Type(window.Element("txtScannerName"), "  ");
        EXPECT_FALSE(next.isEnabled());
    }
}

TEST_F(Wizard, LeavingIncompleteOptionsBackwardEnablesNextAgain) {
    auto& window = Open();
    window.GoToOptions("7346");
    EXPECT_FALSE(window.Widget("cmdNext").isEnabled());
    window.Back();
    EXPECT_TRUE(window.Widget("cmdNext").isEnabled());
}

TEST_F(Wizard, StartupCheckBoxShowsTheSetting) {
    for (const auto& [text, checked] :
         std::vector<std::pair<const char*, bool>>{{"", false}, {"0", false}, {"1", true}, {"01", true}}) {
        registry_.Put(Settings, "StartupWizard", text, RegistryRoot::CurrentUser);
        Open();
        EXPECT_EQ(Control<QCheckBox>(*wizard_, "chkStartup").isChecked(), checked) << text;
        EXPECT_EQ(registry_.Text(Settings, "StartupWizard", RegistryRoot::CurrentUser), text);
    }
}

TEST_F(Wizard, WithoutTheSettingItShowsAtStartupAndStoresNothing) {
    Open();
    EXPECT_FALSE(Control<QCheckBox>(*wizard_, "chkStartup").isChecked());
    EXPECT_FALSE(registry_.HasKey(Settings, RegistryRoot::CurrentUser));
}

TEST_F(Wizard, StartupCheckBoxIsStoredAtOnce) {
    auto& window = Open();
    for (const char* expected : {"1", "0", "1"}) {
        Click(window.Widget("chkStartup"));
        EXPECT_EQ(registry_.Text(Settings, "StartupWizard", RegistryRoot::CurrentUser), expected);
    }
}

TEST_F(Wizard, DoesNotLoadWithASettingThatIsNoNumber) {
    registry_.Put(Settings, "StartupWizard", "yes", RegistryRoot::CurrentUser);
    EXPECT_THROW(Open(), NumberedError);
}

TEST_F(Wizard, EnterGoesOnAndFinishes) {
    auto& window = Open();
    const auto enter = [&window] { window.Press(Qt::Key_Return); };
    enter();
    EXPECT_EQ(window.Page(), WizardPage::SelectScanner);
    enter();
    EXPECT_EQ(window.Page(), WizardPage::Options);
    enter(); // without a name Next is not to be had
    EXPECT_EQ(window.Page(), WizardPage::Options);
    QTest::keyClicks(&window.Focus(), "Lane");
    Choose(window.List("lstInterface_0"), 1);
    window.Widget("txtScannerName_0").setFocus();
    const auto notice = ExpectBox("Kalder Information",
                                  "If not already configured for use with Ravlin, your IBM OEM USB scanner must be "
                                  "configured by the scanning of a bar code or a menu of bar codes.  Please contact a "
                                  "Tavrin representative if you require assistance with that.");
    enter();
    EXPECT_EQ(window.Page(), WizardPage::TestScanner);
    enter();
    EXPECT_EQ(window.Page(), WizardPage::Finished);
    enter();
    EXPECT_FALSE(wizard_->isVisible());
    EXPECT_EQ(wizard_->result(), QDialog::Accepted);
}

TEST_F(Wizard, EnterOnTheBackButtonGoesOnToo) {
    auto& window = Open();
    window.Next();
    window.Widget("cmdBack").setFocus();
    QTest::keyClick(&window.Widget("cmdBack"), Qt::Key_Return);
    EXPECT_EQ(window.Page(), WizardPage::Options);
    window.Widget("cmdBack").setFocus();
    QTest::keyClick(&window.Widget("cmdBack"), Qt::Key_Space);
    EXPECT_EQ(window.Page(), WizardPage::SelectScanner);
}

TEST_F(Wizard, TabGoesThroughTheFieldsInTheirOrder) {
    auto& window = Open();
    window.GoToOptions("Pelerin/3172", 2);
    window.TypeNames("Lane", "LaneScale");
    window.Widget("txtScannerName_2").setFocus();
    for (const char* name : {"lstInterface_2", "lstScannerComPort_2", "txtScaleName_2", "lstScaleComPort_2",
                             "lstWeightUnit_2", "lstScaleDisplay_2", "cmdBack", "cmdNext", "txtScannerName_2"}) {
        window.Press(Qt::Key_Tab);
        EXPECT_EQ(window.Focus().objectName(), name);
    }
}

TEST_F(Wizard, EscapeClosesIt) {
    Open();
    window_->Press(Qt::Key_Escape);
    EXPECT_FALSE(wizard_->isVisible());
    EXPECT_EQ(wizard_->result(), QDialog::Rejected);
}

TEST_F(Wizard, FinishClosesItAndLeavesTheProfilesInPlace) {
    auto& window = OpenAtScannerTest();
    window.Next();
    window.Finish();
    EXPECT_FALSE(wizard_->isVisible());
    EXPECT_EQ(wizard_->result(), QDialog::Accepted);
    wizard_.reset();
    EXPECT_TRUE(registry_.HasKey(std::string(ScannerFolder) + "Lane"));
}
