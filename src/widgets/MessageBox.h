// The one place that shows message boxes.
#pragma once

#include <QString>

class QObject;
class QWidget;

enum class MsgBoxButtons { Ok, YesNo, RetryCancel };
enum class MsgBoxIcon { None, Exclamation };
enum class MsgBoxResult { Ok, Yes, No, Retry, Cancel };

// Shows a modal box and waits for its answer. An empty title stands for the application's title. Closing the box
// answers Ok, No or Cancel. The text is shown as it stands, never as markup.
MsgBoxResult MsgBox(QWidget* owner, const QString& text, MsgBoxButtons buttons = MsgBoxButtons::Ok,
                    const QString& title = {}, MsgBoxIcon icon = MsgBoxIcon::None);

// Whether the object is such a box.
[[nodiscard]] bool IsMessageBox(const QObject& object);
