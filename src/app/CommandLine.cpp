#include "app/CommandLine.h"

CommandLine ParseCommandLine(const QStringList& arguments) {
    CommandLine line;
    const QString text = arguments.join(' ');
    if (text.isEmpty())
        return line;
    if (text == "--version")
        line.answer = QStringLiteral("Ravlin %1\n").arg(RAVLIN_VERSION);
    else if (text == "--help" || text == "-h")
        line.answer = "Usage: ravlin [-l]\n"
                      "Configures point-of-sale scanners and scales.\n\n"
                      "  -l          show the list of logging levels\n"
                      "  -h, --help  print this text\n"
                      "  --version   print the version\n";
    else if (text.size() >= 2 && text.startsWith('-') && text.endsWith('l'))
        line.showLogLevel = true;
    else
        line.warning =
            QStringLiteral("ravlin: ignoring the unknown argument \"%1\"; --help lists what there is\n").arg(text);
    return line;
}
