// What the program was started with.
#pragma once

#include <QString>
#include <QStringList>

struct CommandLine {
    // The log-level list is shown when the whole line is a dash, anything, and a lower-case l.
    bool showLogLevel = false;
    // To be printed instead of starting; empty to start.
    QString answer;
    // What the program does not know in the line and goes on without; empty for nothing.
    QString warning;
};

// arguments without the program's name.
[[nodiscard]] CommandLine ParseCommandLine(const QStringList& arguments);
