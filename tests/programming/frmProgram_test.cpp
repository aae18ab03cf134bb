#include "programming/frmProgram.h"

#include "BoxesSeen.h"
#include "ProgrammedDevice.h"
#include "ScriptedSerlink.h"
#include "profiles/NumberedError.h"
#include "support_widgets/BoxWatcher.h"
#include "support_widgets/Controls.h"

#include <gtest/gtest.h>

#include <QEvent>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace {

using Script = ScriptedSerlink::Script;

const QString RecyclePower = "You must recycle power to enter programming mode for this scanner.";

// Classes without patches take any reply.
const ProgrammedScanner Scanner(0);
constexpr const char* Reply = "123456";

// A programming window over a scripted line, on screen, with what it used and told.
class Programmer {
public:
    explicit Programmer(Script script = {.reply = Reply})
        : window(std::make_unique<frmProgram>(frmProgram::Services{
              .makeSerlink =
                  [this, script](const SerlinkObserver& lineObserver) {
                      observer = lineObserver;
                      return std::make_unique<ScriptedSerlink>(script, log);
                  },
              .wait =
                  [this](std::chrono::milliseconds time) { log.push_back("wait " + std::to_string(time.count())); }})) {
        QObject::connect(window.get(), &frmProgram::ProgramComplete, window.get(), [this] { ++completed; });
        window->show();
    }

    bool Program(const CDevice& device = Scanner) { return window->ProgramDevice(device); }
    template<typename T>
    T& Part(const char* name) {
        return Control<T>(*window, name);
    }
    std::string Visible() {
        std::string parts;
        for (const char* name : {"Serlink", "fraSuccess", "fraFailure", "cmdClose"})
            if (Part<QWidget>(name).isVisible())
                parts += std::string(parts.empty() ? "" : " ") + name;
        return parts;
    }

    std::vector<std::string> log;
    SerlinkObserver observer;
    int completed = 0;
    std::unique_ptr<frmProgram> window;
};

// A session in whose middle, while the reply is awaited, something is done to the windows.
struct Interrupted {
    explicit Interrupted(std::function<void(Programmer&)> work) {
        Programmer programmer({.receiveReply =
                                   [this, &programmer, work] {
                                       work(programmer);
                                       reached = true;
                                       return true;
                                   },
                               .reply = Reply});
        succeeded = programmer.Program();
        visible = programmer.Visible();
    }

    bool reached = false;
    bool succeeded = false;
    std::string visible;
};

// Another window of the program, that counts what its user did and how often it was painted.
class OtherWindow : public QWidget {
public:
    OtherWindow() : button("&Delete", this) {
        QObject::connect(&button, &QPushButton::clicked, this, [this] { ++clicks; });
        resize(200, 100);
        show();
        static_cast<void>(QTest::qWaitForWindowExposed(this));
    }

    QPushButton button;
    int clicks = 0;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* /*event*/) override { ++paints; }
};

bool Fail() {
    throw NumberedError(57U, "COM4 is in use.");
}

} // namespace

TEST(ProgrammingWindow, ShowsThatItIsProgrammingAsSoonAsItIsLoaded) {
    Programmer programmer;
    EXPECT_EQ(programmer.window->windowTitle(), "Ravlin Scanner Configuration");
    EXPECT_EQ(programmer.Visible(), "Serlink");
    EXPECT_FALSE(programmer.Part<QPushButton>("cmdClose").isEnabled());
}

TEST(ProgrammingWindow, HasItsTexts) {
    Programmer programmer;
    EXPECT_EQ(programmer.Part<QLabel>("lblSuccess").text(), "Configuration Success");
    EXPECT_EQ(programmer.Part<QLabel>("lblSuccessText").text(),
              "Your scanner has been configured correctly and is ready to be used with the OPOS driver.");
    EXPECT_EQ(programmer.Part<QLabel>("lblFailure").text(), "Configuration Failure");
    EXPECT_EQ(programmer.Part<QLabel>("lblFailureText").text(),
              "The scanner could not be reconfigured to work with the OPOS driver.  Please make sure you have the "
              "correct model number and serial port selected before attempting to program the scanner.");
    EXPECT_EQ(programmer.Part<QPushButton>("cmdClose").text(), "Close");
}

TEST(ProgrammingWindow, HasNoCloseButtonInItsFrameAndIsNotModal) {
    Programmer programmer;
    EXPECT_FALSE(programmer.window->windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_TRUE(programmer.window->windowFlags().testFlag(Qt::CustomizeWindowHint));
    EXPECT_FALSE(programmer.window->isModal());
    programmer.Program();
    EXPECT_FALSE(programmer.window->isModal());
}

TEST(ProgrammingWindow, ShowsSuccess) {
    Programmer programmer;
    EXPECT_TRUE(programmer.Program());
    EXPECT_EQ(programmer.Visible(), "fraSuccess cmdClose");
    EXPECT_TRUE(programmer.Part<QPushButton>("cmdClose").isEnabled());
    EXPECT_EQ(programmer.completed, 1);
}

TEST(ProgrammingWindow, ShowsEveryFailureWithItsCause) {
    const auto no = [] { return false; };
    const std::vector<std::pair<Script, QString>> failures = {
        {{.receiveReply = no, .failureText = "The scanner kept silent."}, "The scanner kept silent."},
        {{.commandSucceeded = no, .reply = Reply, .failureText = "It refused."}, "It refused."},
        {{.sendCommand = Fail}, "COM4 is in use."},
        {{.receiveReply = Fail}, "COM4 is in use."},
        {{.commandSucceeded = Fail, .reply = Reply}, "COM4 is in use."},
        {{.reply = "1"},
         "Invalid procedure call or argument (the scanner's reply of 1 characters has no firmware number)"},
    };
    for (const auto& [script, cause] : failures) {
        Programmer programmer(script);
        EXPECT_FALSE(programmer.Program());
        EXPECT_EQ(programmer.Visible(), "fraFailure cmdClose");
        EXPECT_TRUE(programmer.Part<QPushButton>("cmdClose").isEnabled());
        EXPECT_EQ(programmer.Part<QLabel>("lblFailureDetail").text(), cause);
        EXPECT_EQ(programmer.completed, 1);
    }
}

TEST(ProgrammingWindow, LineThatCannotBeMadeIsAFailureToo) {
    frmProgram window({.makeSerlink = [](const SerlinkObserver&) -> std::unique_ptr<Serlink> {
        throw std::runtime_error("no line");
    }});
    int completed = 0;
    QObject::connect(&window, &frmProgram::ProgramComplete, &window, [&completed] { ++completed; });
    window.show();
    EXPECT_FALSE(window.ProgramDevice(Scanner));
    EXPECT_TRUE(Control<QWidget>(window, "fraFailure").isVisible());
    EXPECT_EQ(Control<QLabel>(window, "lblFailureDetail").text(), "no line");
    EXPECT_EQ(completed, 1);
}

TEST(ProgrammingWindow, TellsTheMainWindowBeforeItsCloseButtonComes) {
    Programmer programmer;
    std::string atCompletion;
    QObject::connect(programmer.window.get(), &frmProgram::ProgramComplete, programmer.window.get(),
                     [&] { atCompletion = programmer.Visible(); });
    programmer.Program();
    EXPECT_EQ(atCompletion, "fraSuccess");
}

TEST(ProgrammingWindow, ProgramsAgainFromTheStart) {
    Programmer programmer({.receiveReply =
                               [&programmer, calls = 0]() mutable {
                                   EXPECT_EQ(programmer.Visible(), "Serlink");
                                   return ++calls == 1;
                               },
                           .reply = Reply});
    EXPECT_TRUE(programmer.Program());
    EXPECT_TRUE(programmer.Program());
    EXPECT_EQ(programmer.Visible(), "fraSuccess cmdClose");
    EXPECT_EQ(programmer.completed, 2);
}

TEST(ProgrammingWindow, CannotBeClosedInMidSession) {
    const std::vector<std::function<void(frmProgram&)>> attempts = {
        [](frmProgram& window) { QTest::keyClick(&window, Qt::Key_Escape); },
        [](frmProgram& window) { QTest::keyClick(window.windowHandle(), Qt::Key_Escape); },
        [](frmProgram& window) { QTest::keyClick(window.windowHandle(), Qt::Key_F4, Qt::AltModifier); },
        [](frmProgram& window) { EXPECT_FALSE(window.close()); },
        [](frmProgram& window) { EXPECT_FALSE(window.windowHandle()->close()); },
        [](frmProgram& window) { window.reject(); },
    };
    for (const auto& attempt : attempts) {
        const Interrupted session([&attempt](Programmer& programmer) {
            attempt(*programmer.window);
            programmer.observer.idle();
            EXPECT_EQ(programmer.Visible(), "Serlink");
        });
        EXPECT_TRUE(session.reached && session.succeeded);
        EXPECT_EQ(session.visible, "fraSuccess cmdClose");
    }
}

TEST(ProgrammingWindow, HiddenByItsOwnerStillCannotBeClosedInMidSession) {
    const Interrupted session([](Programmer& programmer) {
        programmer.window->setAttribute(Qt::WA_DeleteOnClose);
        programmer.window->hide();
        programmer.window->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        programmer.window->setAttribute(Qt::WA_DeleteOnClose, false);
    });
    EXPECT_TRUE(session.succeeded);
}

TEST(ProgrammingWindow, CannotBeClosedWhileItAsksForThePower) {
    Programmer programmer;
    const ExpectBox box("Ravlin", RecyclePower);
    bool refused = false;
    const BoxesSeen seen([&] { refused = !programmer.window->close(); });
    programmer.Program(ProgrammedScanner(1));
    EXPECT_TRUE(refused);
    EXPECT_TRUE(programmer.window->isVisible());
}

TEST(ProgrammingWindow, IsClosedByEscapeAndByItsButtonAfterwards) {
    Programmer escaped;
    escaped.Program();
    QTest::keyClick(escaped.window.get(), Qt::Key_Escape);
    EXPECT_FALSE(escaped.window->isVisible());

    Programmer closed;
    closed.Program();
    Click(closed.Part<QPushButton>("cmdClose"));
    EXPECT_FALSE(closed.window->isVisible());
}

TEST(ProgrammingWindow, MayDeleteItselfWhenItIsClosed) {
    Programmer programmer;
    programmer.Program();
    const QPointer<frmProgram> window = programmer.window.release();
    window->setAttribute(Qt::WA_DeleteOnClose);
    Click(Control<QPushButton>(*window, "cmdClose"));
    EXPECT_TRUE(WaitUntil([&window] { return window.isNull(); }));
}

TEST(ProgrammingWindow, MayBeDeletedByItsOwnerOnceTheCallHasReturned) {
    const auto owner = std::make_unique<QWidget>();
    const auto makeSerlink = [log = std::vector<std::string>()](const SerlinkObserver&) mutable {
        return std::make_unique<ScriptedSerlink>(Script{.reply = Reply}, log);
    };
    const QPointer<frmProgram> window = new frmProgram({.makeSerlink = makeSerlink}, owner.get());
    window->show();
    EXPECT_TRUE(window->ProgramDevice(Scanner));
    delete window;
    EXPECT_TRUE(owner->children().empty());
}

TEST(ProgrammingWindow, AsksForThePowerToBeRecycledBeforeTheFirstCommand) {
    for (const std::int32_t type : {1, 2}) {
        BoxesSeen seen;
        Programmer programmer(
            {.sendCommand = [&seen] { EXPECT_EQ(seen.icons.size(), 1U); }, .receiveReply = [] { return false; }});
        const ExpectBox box("Ravlin", RecyclePower);
        programmer.Program(ProgrammedScanner(type));
        EXPECT_EQ(seen.icons, std::vector{QMessageBox::Warning});
    }
}

TEST(ProgrammingWindow, AsksForNothingWhereTheScannerIsWokenByACommand) {
    for (const std::int32_t type : {0, 3, 4, 5, 6, 7, 15, 16, 17, 32, 47}) {
        BoxesSeen seen;
        Programmer programmer({.receiveReply = [] { return false; }});
        programmer.Program(ProgrammedScanner(type));
        EXPECT_TRUE(seen.icons.empty());
    }
}

TEST(ProgrammingWindow, WaitsBeforeItWritesAScannerOfClass6) {
    Programmer programmer({.reply = std::string(1024, '0') + "123456"});
    EXPECT_TRUE(programmer.Program(ProgrammedScanner(6)));
    EXPECT_EQ(std::ranges::count(programmer.log, "wait 5000"), 1);
}

TEST(ProgrammingWindow, OtherWindowsTakeNoInputInMidSession) {
    OtherWindow other;
    const Interrupted session([&other](Programmer& programmer) {
        QTest::mouseClick(&other.button, Qt::LeftButton);
        QTest::mouseClick(other.windowHandle(), Qt::LeftButton, {}, other.button.geometry().center());
        QTest::keyClick(&other.button, Qt::Key_Space);
        QTest::keyClick(other.windowHandle(), Qt::Key_D, Qt::AltModifier);
        other.windowHandle()->close();
        programmer.observer.idle();
        EXPECT_EQ(other.clicks, 0);
        EXPECT_TRUE(other.isVisible());
    });
    EXPECT_TRUE(session.reached);
    EXPECT_EQ(other.clicks, 0);
    Click(other.button);
    EXPECT_EQ(other.clicks, 1);
    EXPECT_TRUE(other.close());
}

TEST(ProgrammingWindow, OtherWindowsAreStillPaintedInMidSession) {
    OtherWindow other;
    const Interrupted session([&other](Programmer& programmer) {
        const int before = other.paints;
        other.update();
        programmer.observer.idle();
        EXPECT_GT(other.paints, before);
    });
    EXPECT_TRUE(session.reached);
}

TEST(ProgrammingWindow, DialogThatComesUpInMidSessionTakesInput) {
    const Interrupted session([](Programmer& programmer) {
        const WhenShown closedByHand("Surprise", [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        QTimer::singleShot(0, programmer.window.get(), [] {
            QDialog surprise;
            surprise.setObjectName("Surprise");
            surprise.exec();
        });
        programmer.observer.idle();
    });
    EXPECT_TRUE(session.succeeded);
}

TEST(ProgrammingWindow, ShowsWhatItIsDoing) {
    Interrupted reading([](Programmer& programmer) {
        EXPECT_EQ(programmer.Part<QLabel>("lblStep").text(), "Reading the scanner's configuration...");
    });
    EXPECT_TRUE(reading.reached);
}

TEST(ProgrammingWindow, ShowsHowFarTheBytesHaveGone) {
    const Interrupted session([](Programmer& programmer) {
        auto& bar = programmer.Part<QProgressBar>("barBytes");
        auto& text = programmer.Part<QLabel>("lblBytes");
        EXPECT_EQ(bar.maximum(), 0);
        EXPECT_EQ(text.text(), "");

        programmer.observer.bytesMoved(512, 1030);
        EXPECT_EQ(bar.maximum(), 1030);
        EXPECT_EQ(bar.value(), 512);
        EXPECT_EQ(text.text(), "512 of 1,030 bytes");

        programmer.observer.bytesMoved(512, 0);
        EXPECT_EQ(bar.maximum(), 0);
        EXPECT_EQ(text.text(), "512 bytes");

        programmer.observer.bytesMoved(0, 1);
        EXPECT_EQ(bar.maximum(), 0);
        EXPECT_EQ(text.text(), "");
    });
    EXPECT_TRUE(session.reached);
}

TEST(ProgrammingWindow, GrowsForALongCause) {
    Programmer programmer({.receiveReply = [] { return false; },
                           .failureText = std::string(40, 'x') + ' ' + std::string(40, 'y') + ' ' +
                                          std::string(40, 'z') +
                                          " and what to do about it, at length, in some lines "
                                          "that take more room than the window had before"});
    programmer.Program();
    auto& detail = programmer.Part<QLabel>("lblFailureDetail");
    EXPECT_GE(detail.height(), detail.heightForWidth(detail.width()));
}
