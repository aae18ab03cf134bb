#include "app/frmAbout.h"

#include "support_widgets/Controls.h"

#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

TEST(AboutBox, SaysWhatTheProgramIs) {
    frmAbout about;
    EXPECT_EQ(about.windowTitle(), "About Ravlin");
    EXPECT_EQ(Control<QLabel>(about, "lblTitle").text(), "Ravlin");
    EXPECT_EQ(Control<QLabel>(about, "lblVersion").text(), "Version 2.0.0");
    EXPECT_FALSE(Control<QLabel>(about, "lblDescription").text().isEmpty());
    EXPECT_FALSE(Control<QLabel>(about, "imgIcon").pixmap().isNull());
}

TEST(AboutBox, OkClosesIt) {
    frmAbout about;
    about.show();
    EXPECT_EQ(Control<QPushButton>(about, "cmdOK").text(), "OK");
    Click(Control<QPushButton>(about, "cmdOK"));
    EXPECT_FALSE(about.isVisible());
}
