// What the help says of the controls there are, in every form of the program.
#include "WhatsThisText.h"

#include <QDirIterator>
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
