// What the help says of the controls there are, in every form of the program.
#include "platform/help/ControlHelp.h"

#include <QDialog>
#include <QDirIterator>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <vector>

namespace {

// As a form declares it.
struct FormControl {
    QString window;
    QString name;
    QString kind;
};

void ReadControls(const QString& path, std::vector<FormControl>& controls) {
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return;
    QXmlStreamReader form(&file);
    QString window;
    while (!form.atEnd())
        if (form.readNext() == QXmlStreamReader::StartElement && form.name() == u"widget") {
            const QString name = form.attributes().value("name").toString();
            if (window.isEmpty())
                window = name;
            controls.push_back({window, name, form.attributes().value("class").toString()});
        }
}

std::vector<FormControl> ControlsOfAllForms() {
    std::vector<FormControl> controls;
    QDirIterator forms(RAVLIN_SOURCES "/src", {"*.ui"}, QDir::Files, QDirIterator::Subdirectories);
    while (forms.hasNext())
        ReadControls(forms.next(), controls);
    return controls;
}

// What a user works or reads a value in.
bool WantsExplanation(const FormControl& control) {
    static const QStringList kinds = {"DropDownList",   "QComboBox",    "QLineEdit",  "DigitsBox",
                                      "QPlainTextEdit", "QPushButton",  "QCheckBox",  "QRadioButton",
                                      "QListWidget",    "QTreeWidget",  "QTabWidget", "HelpBrowser",
                                      "ValueLabel",     "QProgressBar", "QSpinBox",   "QSlider"};
    return kinds.contains(control.kind);
}

// Parts of the wizard have forms of their own.
QString WindowOf(const FormControl& control) {
    return control.window.startsWith("Wizard") ? "frmWizard" : control.window;
}

QString WhatsThisOf(const ControlHelp& help, const QString& window, const QString& name) {
    QDialog dialog;
    dialog.setObjectName(window);
    auto* control = new QPushButton(&dialog);
    control->setObjectName(name);
    return help.WhatsThis(*control);
}

} // namespace

TEST(ControlHelp, SaysOfEveryControlWhatItIs) {
    const ControlHelp help;
    const std::vector<FormControl> controls = ControlsOfAllForms();
    ASSERT_GT(controls.size(), 100U);
    for (const FormControl& control : controls)
        if (WantsExplanation(control)) {
            EXPECT_FALSE(WhatsThisOf(help, WindowOf(control), control.name).isEmpty())
                << control.window.toStdString() << '.' << control.name.toStdString()
                << " has no text in help/whatsthishelptopics.txt";
        }
}

TEST(ControlHelp, TellsControlsOfTheSameNameApartByTheirWindow) {
    const ControlHelp help;
    EXPECT_NE(WhatsThisOf(help, "frmProgram", "cmdClose"), WhatsThisOf(help, "frmGlobalConfig", "cmdClose"));
    EXPECT_EQ(WhatsThisOf(help, "frmElsewhere", "cmdClose"), "");
}

TEST(ControlHelp, SaysTheSameOfEveryElementOfAnArray) {
    const ControlHelp help;
    EXPECT_FALSE(WhatsThisOf(help, "frmMain", "lstNewScaleDisplay_0").isEmpty());
    EXPECT_EQ(WhatsThisOf(help, "frmMain", "lstNewScaleDisplay_0"),
              WhatsThisOf(help, "frmMain", "lstNewScaleDisplay_1"));
    EXPECT_NE(WhatsThisOf(help, "frmMain", "lstSimpleDeviceName_0"),
              WhatsThisOf(help, "frmMain", "lstSimpleDeviceName_1"));
}

TEST(ControlHelp, SaysOfALabelWhatItSaysOfTheControlItNames) {
    const ControlHelp help;
    QDialog dialog;
    dialog.setObjectName("frmConfigScale");
    auto* name = new QLineEdit(&dialog);
    name->setObjectName("txtScaleName");
    auto* label = new QLabel(&dialog);
    label->setObjectName("lblScaleName");
    label->setBuddy(name);
    EXPECT_EQ(help.WhatsThis(*label), help.WhatsThis(*name));
    EXPECT_EQ(WhatsThisOf(help, "frmMain", "lblSimpleScanDataCaption"),
              WhatsThisOf(help, "frmMain", "lblSimpleScanData"));
}

TEST(ControlHelp, TakesTheTopicOfTheNearestOwnerThatHasOne) {
    const ControlHelp help;
    QDialog dialog;
    dialog.setObjectName("frmGlobalConfig");
    auto* frame = new QWidget(&dialog);
    frame->setObjectName("fraRX415Handling");
    auto* inFrame = new QPushButton(frame);
    inFrame->setObjectName("optEnableRX415Handling");
    auto* outside = new QPushButton(&dialog);
    EXPECT_EQ(help.TopicOf(inFrame), "global-configuration#rx415");
    EXPECT_EQ(help.TopicOf(outside), "global-configuration");
}

TEST(ControlHelp, KnowsMessageBoxesByTheirTitle) {
    const ControlHelp help;
    QMessageBox box(QMessageBox::NoIcon, "Delete Error", "text", QMessageBox::Ok);
    EXPECT_EQ(help.TopicOf(box.button(QMessageBox::Ok)), "messages#delete-error");
    box.setWindowTitle("Error loading [Lane 1]");
    EXPECT_EQ(help.TopicOf(&box), "messages#error-loading");
}

TEST(ControlHelp, SaysWhatTheButtonsOfAMessageBoxDo) {
    const ControlHelp help;
    const QMessageBox box(QMessageBox::NoIcon, "Delete Error", "text", QMessageBox::Ok);
    EXPECT_FALSE(help.WhatsThis(*box.button(QMessageBox::Ok)).isEmpty());
}

TEST(ControlHelp, BeginsAtTheFirstTopicWhereNothingIsKnown) {
    const ControlHelp help;
    QWidget unknown;
    EXPECT_EQ(help.TopicOf(&unknown), "welcome");
    EXPECT_EQ(help.TopicOf(nullptr), "welcome");
}
