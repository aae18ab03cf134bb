// Fills lists with what the main window says is available.
#pragma once

#include <QString>

class DropDownList;

// Adds "COM" and the number for each two digits of availableComPorts; "03" gives "COM3". Errors: NumberedError
// TypeMismatch for digits that are none.
void AddComPorts(DropDownList& list, const QString& availableComPorts);

// Adds the names, which carriage returns separate.
void AddInterfaces(DropDownList& list, const QString& availableInterfaces);
