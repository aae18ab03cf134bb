#include "platform/help/ControlHelp.h"

#include "widgets/MessageBox.h"

#include <QFile>
#include <QLabel>
#include <QRegularExpression>

namespace {

constexpr const char* FirstTopic = "welcome";

QStringList ReadLines(const QString& name) {
    QFile file(":/help/" + name);
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()).split('\n') : QStringList();
}

// name = topic
QHash<QString, QString> ReadTopics() {
    QHash<QString, QString> topics;
    for (const QString& line : ReadLines("topics.txt"))
        if (!line.startsWith('#') && line.contains('='))
            topics[line.section('=', 0, 0).trimmed()] = line.section('=', 1).trimmed();
    return topics;
}

// ".topic name", and its text on the lines behind it
QHash<QString, QString> ReadWhatsThis() {
    QHash<QString, QString> texts;
    QString name;
    for (const QString& line : ReadLines("whatsthishelptopics.txt")) {
        if (line.startsWith(".topic "))
            name = line.mid(7).trimmed();
        else if (!name.isEmpty())
            texts[name] = (texts.value(name) + ' ' + line).simplified();
    }
    return texts;
}

QString WindowName(const QObject& control) {
    const QObject* object = &control;
    while (object != nullptr && !(object->isWidgetType() && static_cast<const QWidget*>(object)->isWindow()))
        object = object->parent();
    return object != nullptr ? object->objectName() : QString();
}

// Its title, without the name of a profile behind it.
QString BoxName(const QWidget& box) {
    return box.windowTitle().section(" [", 0, 0);
}

} // namespace

ControlHelp::ControlHelp() : topics_(ReadTopics()), whatsThis_(ReadWhatsThis()) {}

QString ControlHelp::TopicOf(const QObject* control) const {
    for (; control != nullptr; control = control->parent()) {
        QString topic = IsMessageBox(*control) ? topics_.value(BoxName(static_cast<const QWidget&>(*control)))
                                               : Find(topics_, *control);
        if (!topic.isEmpty())
            return topic;
    }
    return FirstTopic;
}

QString ControlHelp::WhatsThis(const QObject& control) const {
    if (const auto* label = qobject_cast<const QLabel*>(&control); label != nullptr && label->buddy() != nullptr)
        return WhatsThis(*label->buddy());
    for (const QObject* owner = control.parent(); owner != nullptr; owner = owner->parent())
        if (IsMessageBox(*owner))
            return whatsThis_.value("message box");
    return Find(whatsThis_, control);
}

QString ControlHelp::Find(const Texts& texts, const QObject& control) {
    static const QRegularExpression caption("Caption$"); // of the label that shows the value
    const QString name = control.objectName().remove(caption);
    if (name.isEmpty())
        return {};
    static const QRegularExpression element("_\\d+$");
    const QString array = QString(name).remove(element);
    const QString window = WindowName(control);
    for (const QString& key : {window + '.' + name, window + '.' + array, name, array})
        if (const auto found = texts.constFind(key); found != texts.constEnd())
            return *found;
    return {};
}
