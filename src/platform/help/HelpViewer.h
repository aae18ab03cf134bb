// Shows the help of the program, by whatever the system has for it. Which implementation there is, is settled when
// linking.
#pragma once

#include <memory>

class QString;
class QWidget;

class HelpViewer {
public:
    virtual ~HelpViewer() = default;
    HelpViewer(const HelpViewer&) = delete;
    HelpViewer& operator=(const HelpViewer&) = delete;

    // Shows the table of contents. owner is the window that asks, null for none: while it is modal, the help stays
    // usable beside it.
    virtual void ShowContents(QWidget* owner) = 0;
    // Shows the index.
    virtual void ShowIndex(QWidget* owner) = 0;
    // Shows one topic: its name without ".html", optionally with "#" and a place in it. A topic that is not there
    // shows the first topic instead.
    virtual void ShowTopic(const QString& topic, QWidget* owner) = 0;
    // Closes what is open.
    virtual void Close() = 0;

protected:
    HelpViewer() = default;
};

// The viewer of this system. Opens nothing yet.
[[nodiscard]] std::unique_ptr<HelpViewer> CreateHelpViewer();
