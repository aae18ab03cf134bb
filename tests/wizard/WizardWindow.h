// The wizard on the screen, worked as its user does.
#pragma once

#include "support_widgets/BoxWatcher.h"
#include "support_widgets/Controls.h"
#include "wizard/frmWizard.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>

namespace WizardTexts {

inline const QString CannotConfigure = "Error attempting to configure the scanner.  Please make sure that\r\n"
                                       "you have the correct scanner model and serial port selected before\r\n"
                                       "attempting to configure your scanner.";
inline const QString CannotTestScanner =
    "The scanner cannot be tested because the OPOS driver could not communicate to the scanner.\r\n"
    "Please make sure you have the scanner connected to the system.  If you do not wish to test\r\n"
    "the scanner at this time, press Cancel.  You can use the Simple Test option to test the scanner \r\n"
    "at a later time.";
inline const QString CannotTestScale =
    "The scale cannot be tested because the OPOS driver could not communicate to the scale.\r\n"
    "Please make sure you have the scale connected to the system.  If you do not wish to test\r\n"
    "the scale at this time, press Cancel.  You can use the Simple Test option to test the scale \r\n"
    "at a later time.";

} // namespace WizardTexts

class WizardWindow {
public:
    explicit WizardWindow(frmWizard& wizard) : wizard_(wizard) {
        wizard_.show();
        wizard_.activateWindow();
        if (!QTest::qWaitForWindowActive(&wizard_))
            throw std::runtime_error("the wizard does not show itself");
    }

    frmWizard& Window() { return wizard_; }
    DropDownList& List(const QString& name) { return Control<DropDownList>(wizard_, name); }
    QWidget& Widget(const QString& name) { return Control<QWidget>(wizard_, name); }
    QString Text(const QString& label) { return Control<QLabel>(wizard_, label).text(); }
    // Whether it can be seen now.
    bool Sees(const QString& name) { return Widget(name).isVisible(); }

    // The page that is shown; -1 unless it is exactly one.
    int Page() {
        int shown = -1;
        for (int page = 0; page < 8; ++page)
            if (Sees(QStringLiteral("fraWizard_%1").arg(page)))
                shown = shown < 0 ? page : 8;
        return shown < 8 ? shown : -1;
    }
    // The option frame that is shown.
    int Frame() { return Control<QStackedWidget>(wizard_, "stkOptions").currentIndex(); }

    void Next() { Click(Widget("cmdNext")); }
    void Back() { Click(Widget("cmdBack")); }
    void Finish() { Click(Widget("cmdFinish")); }

    void Type(const QString& name, const QString& text) {
        auto& box = Control<QLineEdit>(wizard_, name);
        if (!box.isVisible())
            throw std::runtime_error(("no user can type into " + name).toStdString());
        box.clear();
        QTest::keyClicks(&box, text);
    }

    // The control that the keyboard goes to.
    QWidget& Focus() {
        QWidget* focus = wizard_.focusWidget();
        return focus != nullptr ? *focus : static_cast<QWidget&>(wizard_);
    }
    void Press(Qt::Key key) { QTest::keyClick(&Focus(), key); }

    // From Welcome to the Options page. Only a scale-capable model asks for a scale type.
    void GoToOptions(const QString& model, int scaleType = 0) {
        Next();
        Choose(List("lstModelNumber"), model);
        Next();
        if (Page() == WizardPage::ScaleType) {
            Choose(List("lstScaleType"), scaleType);
            Next();
        }
    }
    // Fills in the names that the shown option frame asks for.
    void TypeNames(const QString& scanner, const QString& scale = {}) {
        Type(Element("txtScannerName"), scanner);
        if (Frame() != 0)
            Type(Element("txtScaleName"), scale);
    }
    // The element of a control array in the shown option frame.
    QString Element(const QString& name) { return name + '_' + QString::number(Frame()); }

private:
    frmWizard& wizard_;
};
