#pragma once

#include "platform/Registry.h"

#include <QList>
#include <QMap>
#include <QString>

namespace mervak::test {

// An in-memory registry. Key and value names are compared without regard to
// case; subkeys are enumerated sorted without regard to case. Set-up calls
// (addKey, put) are not recorded; every successful setValue is.
class FakeRegistry : public Registry {
public:
    struct Write {
        RegistryPath key;
        QString name;
        RegistryValue value;
    };

    // The four roots exist from the start, empty.
    FakeRegistry();

    // Creates the key at "HKEY_...\a\b" and every key above it.
    void addKey(const QString& path);
    // Creates the key as addKey does and stores the value in it.
    void put(const QString& path, const QString& name, const RegistryValue& value);
    // Makes every later setValue fail, as a key opened read-only.
    void setWritesFail(bool fail) { writesFail_ = fail; }

    // The value stored now, written by put or setValue.
    std::optional<RegistryValue> stored(const QString& path, const QString& name) const;
    const QList<Write>& writes() const { return writes_; }

    std::optional<QStringList> subkeys(const RegistryPath& key) override;
    std::optional<RegistryValue> value(const RegistryPath& key, const QString& name) override;
    bool setValue(const RegistryPath& key, const QString& name,
                  const RegistryValue& value) override;

private:
    struct Key {
        QString name;
        QMap<QString, RegistryValue> values; // by lower-case value name
    };

    static std::optional<QString> canonical(const RegistryPath& key);
    const Key* find(const RegistryPath& key) const;
    Key* createKey(const QString& path);

    QMap<QString, Key> keys_; // by canonical path: root name and lower-case subkey
    QList<Write> writes_;
    bool writesFail_ = false;
};

} // namespace mervak::test
