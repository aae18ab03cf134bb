// colDevices: every profile of the registry as a live object.
#pragma once

#include "profiles/CDevice.h"

#include <QHash>
#include <QString>

#include <list>
#include <memory>

// Keeps the order in which profiles were added. A profile is keyed by its device class and name, without regard to
// case. A profile of a foreign service object knows neither, so the collection remembers what each was added under.
class DeviceCollection {
public:
    struct Entry {
        std::int32_t deviceType;
        QString name;
        std::shared_ptr<CDevice> device;
    };

    // Adds at the end. Errors: NumberedError KeyAlreadyAssociated.
    void Add(std::int32_t deviceType, const QString& name, std::shared_ptr<CDevice> device);
    // Errors: NumberedError InvalidArgument for a profile that is not held.
    [[nodiscard]] std::shared_ptr<CDevice> Item(std::int32_t deviceType, const QString& name) const;
    void Remove(std::int32_t deviceType, const QString& name);

    // Adds at the end in place of the one held under that name. A test that holds the device goes on holding it. Errors
    // as Item.
    void Replace(std::int32_t deviceType, const QString& name, std::shared_ptr<CDevice> device);

    [[nodiscard]] bool Contains(std::int32_t deviceType, const QString& name) const;
    [[nodiscard]] const std::list<Entry>& Entries() const { return entries_; }
    void Clear();

private:
    [[nodiscard]] std::list<Entry>::iterator Find(std::int32_t deviceType, const QString& name) const;

    std::list<Entry> entries_;
    QHash<QString, std::list<Entry>::iterator> byKey_;
};
