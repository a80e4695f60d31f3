#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace mervak {

// The XDG autostart entry that starts Mervak at login with a Template, so that
// a pupil's computer opens the pupil's sheet by itself.
class Autostart {
public:
    // `configFolder` is $XDG_CONFIG_HOME (~/.config when unset).
    explicit Autostart(const QString& configFolder);

    static QString currentConfigFolder();

    QString entryPath() const;
    bool isSet() const;

    // Writes the entry that runs `command` (the program and its arguments).
    // Returns the reason in plain words when the file cannot be written.
    std::optional<QString> set(const QStringList& command) const;
    std::optional<QString> remove() const;

    // The Exec value of a desktop entry: each argument quoted when it must be,
    // with the characters the format reserves escaped.
    static QString execLine(const QStringList& command);

private:
    QString folder_;
};

} // namespace mervak
