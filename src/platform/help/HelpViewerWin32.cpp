// HTML Help with the help file beside the program; where one of the two is missing, the program's own window.
#include "platform/help/HelpWindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QWidget>

#include <windows.h>

namespace {

constexpr UINT DisplayTopic = 0; // HH_DISPLAY_TOPIC
constexpr UINT DisplayContents = 1;
constexpr UINT DisplayIndex = 2;
constexpr UINT CloseAll = 0x12;

using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCSTR, UINT, DWORD_PTR);

// Loaded when help is first asked for; many a terminal does without it.
HtmlHelpFunction LoadHtmlHelp() {
    const HMODULE library = LoadLibraryExA("hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library == nullptr)
        return nullptr;
    const FARPROC function = GetProcAddress(library, "HtmlHelpA");
    return reinterpret_cast<HtmlHelpFunction>(reinterpret_cast<void*>(function));
}

class HtmlHelpViewer final : public HelpViewer {
public:
    void ShowContents(QWidget* owner) override {
        if (!Show(owner, DisplayContents))
            window_->ShowContents(owner);
    }
    void ShowIndex(QWidget* owner) override {
        if (!Show(owner, DisplayIndex))
            window_->ShowIndex(owner);
    }
    void ShowTopic(const QString& topic, QWidget* owner) override {
        const QString name = topic.section('#', 0, 0);
        const QString place = topic.mid(name.size());
        if (!Show(owner, DisplayTopic, "::/" + name + ".html" + place))
            window_->ShowTopic(topic, owner);
    }
    void Close() override {
        if (htmlHelp_ != nullptr)
            htmlHelp_(nullptr, nullptr, CloseAll, 0);
        window_->Close();
    }

private:
    // False where HTML Help shows nothing.
    bool Show(QWidget* owner, UINT command, const QString& topic = {}) {
        const QString file = QDir(QCoreApplication::applicationDirPath()).filePath("Ravlin.chm");
        if (!QFileInfo::exists(file))
            return false;
        if (htmlHelp_ == nullptr)
            htmlHelp_ = LoadHtmlHelp();
        if (htmlHelp_ == nullptr)
            return false;
        const QByteArray name = (QDir::toNativeSeparators(file) + topic).toLocal8Bit();
        const HWND window = owner == nullptr ? nullptr : reinterpret_cast<HWND>(owner->window()->winId());
        return htmlHelp_(window, name.constData(), command, 0) != nullptr;
    }

    HtmlHelpFunction htmlHelp_ = nullptr;
    std::unique_ptr<HelpViewer> window_ = CreateHelpWindow();
};

} // namespace

std::unique_ptr<HelpViewer> CreateHelpViewer() {
    return std::make_unique<HtmlHelpViewer>();
}
