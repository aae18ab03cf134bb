#include "wizard/AvailableLists.h"

#include "profiles/Numbers.h"
#include "widgets/DropDownList.h"

#include <QStringList>

void AddComPorts(DropDownList& list, const QString& availableComPorts) {
    for (qsizetype i = 0; i < availableComPorts.size(); i += 2)
        list.AddItem(QStringLiteral("COM%1").arg(ToInt16(availableComPorts.mid(i, 2).toStdString())));
}

void AddInterfaces(DropDownList& list, const QString& availableInterfaces) {
    for (const QString& text : availableInterfaces.split('\r'))
        list.AddItem(text);
}
