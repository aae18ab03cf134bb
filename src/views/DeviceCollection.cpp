#include "views/DeviceCollection.h"

#include "profiles/NumberedError.h"

namespace {

// Letter by letter, as the registry compares names: two keys that it holds must both find their place here, though a
// dictionary would take their names for one ("Straße" and "STRASSE").
QString Key(std::int32_t deviceType, const QString& name) {
    QList<uint> letters = (QString::fromStdString(DeviceClassWord(deviceType)) + name).toUcs4();
    for (uint& letter : letters)
        letter = QChar::toUpper(letter);
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(letters.constData()), letters.size());
}

} // namespace

void DeviceCollection::Add(std::int32_t deviceType, const QString& name, std::shared_ptr<CDevice> device) {
    const QString key = Key(deviceType, name);
    if (byKey_.contains(key))
        throw NumberedError(ErrorNumber::KeyAlreadyAssociated, name.toStdString());
    entries_.push_back({deviceType, name, std::move(device)});
    byKey_.insert(key, std::prev(entries_.end()));
}

std::shared_ptr<CDevice> DeviceCollection::Item(std::int32_t deviceType, const QString& name) const {
    return Find(deviceType, name)->device;
}

void DeviceCollection::Remove(std::int32_t deviceType, const QString& name) {
    entries_.erase(Find(deviceType, name));
    byKey_.remove(Key(deviceType, name));
}

void DeviceCollection::Replace(std::int32_t deviceType, const QString& name, std::shared_ptr<CDevice> device) {
    device->InUse(Item(deviceType, name)->InUse());
    Remove(deviceType, name);
    Add(deviceType, name, std::move(device));
}

bool DeviceCollection::Contains(std::int32_t deviceType, const QString& name) const {
    return byKey_.contains(Key(deviceType, name));
}

void DeviceCollection::Clear() {
    byKey_.clear();
    entries_.clear();
}

std::list<DeviceCollection::Entry>::iterator DeviceCollection::Find(std::int32_t deviceType,
                                                                    const QString& name) const {
    const auto found = byKey_.find(Key(deviceType, name));
    if (found == byKey_.end())
        throw NumberedError(ErrorNumber::InvalidArgument,
                            "there is no " + DeviceClassWord(deviceType) + " profile " + name.toStdString());
    return found.value();
}
