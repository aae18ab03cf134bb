// What the help says of a control: its topic, and what it is in a sentence or two; found by the control's name.
#pragma once

#include <QHash>
#include <QString>

class QObject;

// Names are looked up from the most to the least exact: the window's name, a dot and the control's name; the control's
// name; each of them without the "_i" of a control array's element.
class ControlHelp {
public:
    // Reads the embedded files.
    ControlHelp();

    // The topic of the control or of the nearest of its owners that has one; a message box is known by its title. The
    // first topic where none has. control may be null.
    [[nodiscard]] QString TopicOf(const QObject* control) const;
    // Empty where nothing is said of it. A label says what the control it names says.
    [[nodiscard]] QString WhatsThis(const QObject& control) const;

private:
    using Texts = QHash<QString, QString>;
    [[nodiscard]] static QString Find(const Texts& texts, const QObject& control);

    Texts topics_;
    Texts whatsThis_;
};
