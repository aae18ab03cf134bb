#include "ControlManifest.h"

#include "support/TemporaryRegistry.h"
#include "support_app/MainWindow.h"

#include <QAction>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

class Manifest : public ::testing::Test {
protected:
    Manifest() { WithoutWizard(registry_); }

    TemporaryRegistry registry_;
};

} // namespace

TEST_F(Manifest, NamesEachControlOfTheMainWindowOnceAndOnItsPage) {
    MainWindow window(registry_);
    for (const ControlEntry& entry : ControlManifest) {
        const auto named = window->findChildren<QObject*>(entry.name);
        ASSERT_EQ(named.size(), 1) << entry.name;
        EXPECT_TRUE(named.first()->inherits(entry.kind))
            << entry.name << " is a " << named.first()->metaObject()->className();
        const QObject* page = window->objectName() == entry.page ? &*window : window->findChild<QObject*>(entry.page);
        ASSERT_NE(page, nullptr) << entry.page;
        EXPECT_EQ(page->findChildren<QObject*>(entry.name).size(), 1) << entry.name << " is not on " << entry.page;
    }
}

TEST_F(Manifest, HoldsEveryControlThatAUserWorksWith) {
    MainWindow window(registry_);
    QStringList unknown;
    for (const QWidget* control : window->findChildren<QWidget*>()) {
        const QString name = control->objectName();
        const bool works = name.startsWith("lst") || name.startsWith("cmd") || name.startsWith("chk") ||
                           name.startsWith("txt") || name.startsWith("opt");
        if (works &&
            !std::ranges::any_of(ControlManifest, [&](const ControlEntry& entry) { return name == entry.name; }))
            unknown << name;
    }
    EXPECT_EQ(unknown, QStringList());
}

TEST_F(Manifest, MnemonicsOfAPageDoNotClash) {
    MainWindow window(registry_);
    for (int view = 0; view < 5; ++view) {
        window->ShowView(view);
        QMap<QString, QString> taken;
        for (QWidget* control :
             Control<QWidget>(*window, QStringLiteral("fraOption_%1").arg(view)).findChildren<QWidget*>()) {
            if (!control->isVisibleTo(&*window))
                continue;
            const QString text = control->property("text").toString();
            const auto mark = text.indexOf('&');
            if (mark < 0 || mark + 1 >= text.size() || control->objectName().isEmpty() || !control->isEnabled())
                continue;
            const QString letter = text.mid(mark + 1, 1).toLower();
            EXPECT_FALSE(taken.contains(letter))
                << letter.toStdString() << " of " << control->objectName().toStdString() << " is taken by "
                << taken[letter].toStdString();
            taken[letter] = control->objectName();
        }
    }
}
