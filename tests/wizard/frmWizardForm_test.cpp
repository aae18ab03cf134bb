// What the pages of the wizard hold and how they look.
#include "WizardFixture.h"

#include "profiles/ModelCatalogue.h"
#include "widgets/ModelPicture.h"

#include <QCheckBox>

namespace {

QStringList Ports() {
    return {"COM1", "COM2", "COM3", "COM12", "COM20", "COM64"};
}

} // namespace

TEST_F(Wizard, PagesAreCaptioned) {
    auto& window = Open();
    const QStringList captions = {"Welcome",       "Select Scanner", "Scale Type", "Options",
                                  "Configuration", "Test Scanner",   "Test Scale", "Finished"};
    for (int page = 0; page < 8; ++page) {
        EXPECT_EQ(window.Text(QStringLiteral("lblHeading_%1").arg(page)), captions[page]);
        EXPECT_EQ(window.Widget(QStringLiteral("fraWizard_%1").arg(page)).windowTitle(), captions[page]);
    }
}

TEST_F(Wizard, PagesHaveTheirTexts) {
    auto& window = Open();
    const std::vector<std::pair<const char*, const char*>> texts = {
        {"lblWelcome",
         " Welcome to the Ravlin Configuration Wizard. This wizard will walk you through the process of configuring "
         "your scanner to work with the Tavrin OPOS driver.  This wizard will create a profile for your device, "
         "reconfigure your device to allow it to work with the Tavrin OPOS driver, and test the profile and "
         "configuration with the OPOS driver to make sure all of the settings are correct.  Click Next to begin."},
        {"lblSelectScanner",
         "To begin the process of configuring your scanner, please select the model number of your scanner from the "
         "list below:"},
        {"lblSelectScaleType",
         "Please select the type of scale integrated into your scanner.  If your scanner does not support a scale or "
         "you do not wish to configure the scale to work with the Tavrin OPOS driver, please select None."},
        {"lblOptions", "Please fill in the options below to create a profile for your scanner."},
        {"lblConfiguration",
         "Your scanner is now being reconfigured to work with the Tavrin OPOS driver.  Please wait while the settings "
         "in your scanner are updated."},
        {"lblTestScanner",
         "Your scanner has been enabled by the Tavrin OPOS drivers.  When you scan a bar code, it should appear "
         "below."},
        {"lblScanDataCaption", "Bar Code Data:"},
        {"lblScanDataTypeCaption", "Symbology:"},
        {"lblTestScale",
         "Your scale has been enabled by the Tavrin OPOS drivers.  When you place an item upon the scale, its weight "
         "should appear below."},
        {"lblWeightCaption", "Item Weight:"},
        {"lblWizardZeroWeightNotice",
         "Note, Zero (0) Weight responses are currently prohibited for Single-Cable Scale by the value of Global "
         "Configuration setting Zero Weight Suppression (Single-Cable Scale)."},
        {"lblDualCableNote",
         "If you wish to test your Dual-Cable Scale, you may do so after the completion of this Configuration Wizard, "
         "through the Detailed Test feature of this Ravlin Administrator utility."},
        {"lblDualCableNext", "Please click the Next button to continue."},
        {"lblFinished",
         "The Ravlin Configuration Wizard is complete, and your scanner is ready to work with the Tavrin OPOS "
         "drivers."},
    };
    for (const auto& [label, text] : texts)
        EXPECT_EQ(window.Text(label), text);
    EXPECT_EQ(Control<QPushButton>(*wizard_, "cmdBack").text(), "Back");
    EXPECT_EQ(Control<QPushButton>(*wizard_, "cmdNext").text(), "Next");
    EXPECT_EQ(Control<QPushButton>(*wizard_, "cmdFinish").text(), "Finish");
    EXPECT_EQ(Control<QCheckBox>(*wizard_, "chkStartup").text(), "Do not show at startup");
}

TEST_F(Wizard, OffersTheModelsWithTheirPictures) {
    auto& window = Open();
    auto& models = window.List("lstModelNumber");
    ASSERT_EQ(models.ListCount(), static_cast<int>(ModelCatalogue.size()));
    window.Next();
    for (int i = 0; i < models.ListCount(); ++i) {
        const CatalogueEntry& entry = ModelCatalogue.at(static_cast<std::size_t>(i));
        Choose(models, i);
        EXPECT_EQ(models.Text(), entry.label.data());
        EXPECT_EQ(ShownModelPicture(Control<QLabel>(*wizard_, "imgModelPicture")), entry.pictureId);
    }
}

TEST_F(Wizard, EveryOptionFrameHasAnElementOfEachArray) {
    auto& window = Open();
    for (int i = 0; i < 3; ++i) {
        const QString element = QStringLiteral("_%1").arg(i);
        EXPECT_NE(wizard_->findChild<QFrame*>("fraOptions" + element), nullptr);
        EXPECT_EQ(Items(window.List("lstInterface" + element)), QStringList({"RS232", "Full Speed USB", "POS USB"}));
        EXPECT_EQ(Items(window.List("lstScannerComPort" + element)), Ports());
        EXPECT_EQ(Items(window.List("lstScaleComPort" + element)), Ports());
        EXPECT_EQ(Items(window.List("lstWeightUnit" + element)), QStringList({"English", "Metric"}));
        EXPECT_EQ(Items(window.List("lstScaleDisplay" + element)), QStringList({"No", "Yes"}));
        EXPECT_NE(wizard_->findChild<QLineEdit*>("txtScannerName" + element), nullptr);
        EXPECT_NE(wizard_->findChild<QLineEdit*>("txtScaleName" + element), nullptr);
    }
}

TEST_F(Wizard, OptionFramesAskForWhatTheirScaleTypeNeeds) {
    const std::vector<std::pair<const char*, const char*>> fields = {
        {"lblScannerName", "txtScannerName"},       {"lblInterface", "lstInterface"},
        {"lblScannerComPort", "lstScannerComPort"}, {"lblScaleName", "txtScaleName"},
        {"lblScaleComPort", "lstScaleComPort"},     {"lblWeightUnit", "lstWeightUnit"},
        {"lblScaleDisplay", "lstScaleDisplay"}};
    const std::vector<QStringList> asked = {
        {"Scanner Profile Name:", "Interface:", "COM Port:"},
        {"Scanner Profile Name:", "Interface:", "COM Port:", "Scale Profile Name:", "Unit of Measure:",
         "Scale Display:"},
        {"Scanner Profile Name:", "Interface:", "Scanner COM Port:", "Scale Profile Name:", "Scale COM Port:",
         "Unit of Measure:", "Scale Display:"}};
    for (int scaleType = 0; scaleType < 3; ++scaleType) {
        auto& window = Open();
        window.GoToOptions("Pelerin/3256", scaleType);
        EXPECT_EQ(window.Frame(), scaleType);
        QStringList captions;
        for (const auto& [label, control] : fields) {
            EXPECT_EQ(window.Sees(window.Element(label)), window.Sees(window.Element(control))) << label;
            EXPECT_EQ(Control<QLabel>(*wizard_, window.Element(label)).buddy(),
                      &window.Widget(window.Element(control)));
            if (window.Sees(window.Element(label)))
                captions << window.Text(window.Element(label));
        }
        EXPECT_EQ(captions, asked[static_cast<std::size_t>(scaleType)]);
    }
}

TEST_F(Wizard, KeepsItsSizeOnEveryPage) {
    auto& window = Open();
    const QSize size = wizard_->size();
    const auto same = [&] { EXPECT_EQ(wizard_->size(), size) << window.Page(); };
    window.GoToOptions("Pelerin/3172", 2);
    same();
    window.TypeNames("Lane", "LaneScale");
    for (int i = 0; i < 3; ++i) {
        window.Next();
        same();
    }
    EXPECT_EQ(window.Page(), WizardPage::Finished);
    EXPECT_EQ(wizard_->minimumSize(), wizard_->maximumSize());
}

TEST_F(Wizard, TextsAreNotCutOff) {
    auto& window = OpenAtScaleTest(2);
    const auto labels = wizard_->findChildren<QLabel*>();
    ASSERT_GT(labels.size(), 20);
    window.Next();
    for (int page = 0; page < 8; ++page) {
        Control<QStackedWidget>(*wizard_, "stkWizard").setCurrentIndex(page);
        QCoreApplication::processEvents();
        for (const QLabel* label : labels) {
            if (!label->isVisible() || label->text().isEmpty())
                continue;
            EXPECT_GE(label->width(), label->wordWrap() ? 100 : label->minimumSizeHint().width())
                << label->objectName().toStdString();
            EXPECT_GE(label->height(),
                      label->wordWrap() ? label->heightForWidth(label->width()) : label->minimumSizeHint().height())
                << label->objectName().toStdString();
        }
    }
}
