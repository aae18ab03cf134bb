#include "support/TemporaryDirectory.h"
#include "support/TemporaryRegistry.h"
#include "support_widgets/Controls.h"

#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

namespace {

constexpr int EndLimitMs = 20000;

// The program, started for itself in a session of its own.
class Program : public ::testing::Test {
protected:
    Program() {
        registry_.Put("Software\\Tavrin Instruments\\Ravlin 2", "StartupWizard", "1", RegistryRoot::CurrentUser);
    }

    std::unique_ptr<QProcess> Start(const QStringList& arguments = {}) {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("XDG_RUNTIME_DIR", Runtime());
        for (const std::string& setting : registry_.Environment()) {
            const QString text = QString::fromStdString(setting);
            environment.insert(text.section('=', 0, 0), text.section('=', 1));
        }
        process->setProcessEnvironment(environment);
        process->start(RAVLIN_PROGRAM, arguments);
        return process;
    }
    QString Runtime() const { return QString::fromStdString(directory_.Path().string()); }
    bool IsListening() const { return QFile::exists(Runtime() + "/ravlin/instance.socket"); }

    TemporaryDirectory directory_;
    TemporaryRegistry registry_;
};

void End(QProcess& process) {
    process.kill();
    process.waitForFinished(EndLimitMs);
}

} // namespace

TEST_F(Program, ASecondStartBringsTheFirstForwardAndEnds) {
    const auto first = Start();
    ASSERT_TRUE(WaitUntil([this] { return IsListening(); }));
    const auto second = Start();
    ASSERT_TRUE(second->waitForFinished(EndLimitMs));
    EXPECT_EQ(second->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(second->exitCode(), 0);
    EXPECT_EQ(first->state(), QProcess::Running);
    End(*first);
}

TEST_F(Program, OfTwoStartsAtOnceOneStays) {
    const auto one = Start();
    const auto other = Start();
    ASSERT_TRUE(
        WaitUntil([&] { return one->state() == QProcess::NotRunning || other->state() == QProcess::NotRunning; }));
    QProcess& stays = one->state() == QProcess::Running ? *one : *other;
    EXPECT_EQ(stays.state(), QProcess::Running);
    EXPECT_TRUE(IsListening());
    End(stays);
}

TEST_F(Program, AnInstanceThatDiedIsNoInstance) {
    {
        const auto first = Start();
        ASSERT_TRUE(WaitUntil([this] { return IsListening(); }));
        End(*first);
    }
    ASSERT_TRUE(IsListening()) << "a killed program leaves its socket";
    QFile::remove(Runtime() + "/ravlin/instance.socket");
    const auto second = Start();
    EXPECT_TRUE(WaitUntil([this] { return IsListening(); }));
    EXPECT_EQ(second->state(), QProcess::Running);
    End(*second);
}

TEST_F(Program, AnInstanceThatCannotBeReachedDoesNotKeepAnotherFromStarting) {
    const auto first = Start();
    ASSERT_TRUE(WaitUntil([this] { return IsListening(); }));
    ASSERT_TRUE(QFile::remove(Runtime() + "/ravlin/instance.socket"));
    const auto second = Start();
    EXPECT_TRUE(WaitUntil([this] { return IsListening(); })) << "it goes on starting";
    EXPECT_EQ(second->state(), QProcess::Running);
    End(*second);
    End(*first);
}

TEST_F(Program, AnUnknownArgumentIsNamedAndTheProgramStartsWithoutIt) {
    const auto process = Start({"-L"});
    EXPECT_TRUE(WaitUntil([this] { return IsListening(); }));
    EXPECT_EQ(process->state(), QProcess::Running);
    End(*process);
    EXPECT_TRUE(process->readAllStandardError().contains(
        "ravlin: ignoring the unknown argument \"-L\"; --help lists what there is\n"));
}

TEST_F(Program, PrintsItsVersion) {
    const auto process = Start({"--version"});
    ASSERT_TRUE(process->waitForFinished(EndLimitMs));
    EXPECT_EQ(process->exitCode(), 0);
    EXPECT_EQ(process->readAllStandardOutput(), "Ravlin 2.0.0\n");
}
