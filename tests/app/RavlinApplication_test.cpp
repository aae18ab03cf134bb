#include "app/RavlinApplication.h"

#include "profiles/RegistryStore.h"
#include "support_widgets/BoxWatcher.h"

#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

TEST(Application, AnErrorNobodyCaughtEndsInOneMessageBoxAndTheProgramGoesOn) {
    QPushButton button;
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, &button, [&clicks] {
        ++clicks;
        throw RegistryError(RegistryErrorNumber::KeyMissing, "The key is gone.");
    });
    button.show();
    for (int i = 1; i <= 2; ++i) {
        const ExpectBox box("Ravlin", "The key is gone.\r\n\r\nError Number: -2147220987");
        QTest::mouseClick(&button, Qt::LeftButton);
        EXPECT_EQ(clicks, i);
    }
}

TEST(Application, AStepThatFailsIsReportedAndTheNextOneFollows) {
    const ExpectBox box("Ravlin", "Type mismatch (\"x\")\r\n\r\nError Number: 13");
    EXPECT_FALSE(RunReported([] { throw NumberedError(ErrorNumber::TypeMismatch, "\"x\""); }));
    bool ran = false;
    EXPECT_TRUE(RunReported([&ran] { ran = true; }));
    EXPECT_TRUE(ran);
}

TEST(Application, IsNamedAndHasAnIcon) {
    EXPECT_EQ(QCoreApplication::applicationName(), "Ravlin");
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), "Ravlin");
    EXPECT_FALSE(QApplication::windowIcon().isNull());
}
