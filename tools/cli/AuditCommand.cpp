#include "AuditCommand.h"

#include "CliText.h"
#include "platform/HomeFolder.h"
#include "platform/Settings.h"
#include "session/TemplateAudit.h"
#include "template/TemplateFile.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace mervak::cli {

namespace {

using Standing = TrustPolicy::Standing;
using Kind = GuardedCommand::Kind;

QString pick(const char* catalan, const char* spanish) {
    return QString::fromUtf8(language() == Language::Spanish ? spanish : catalan);
}

QString standingText(Standing standing) {
    switch (standing) {
    case Standing::Own:
    case Standing::Allowed:
        return pick("de confiança: aquest usuari l'ha desada o permesa",
                    "de confianza: este usuario la ha guardado o permitido");
    case Standing::SystemData:
        return pick("de confiança: és a la carpeta de dades del programa",
                    "de confianza: está en la carpeta de datos del programa");
    case Standing::TrustedFolder:
        return pick("de confiança: és en una carpeta de CarpetesDeConfianca",
                    "de confianza: está en una carpeta de CarpetesDeConfianca");
    case Standing::Denied:
        return pick("no és de confiança: aquest usuari no l'ha permesa",
                    "no es de confianza: este usuario no la ha permitido");
    case Standing::Unknown:
        break;
    }
    return pick("no és de confiança", "no es de confianza");
}

const char* standingName(Standing standing) {
    constexpr const char* kNames[] = {"own",     "system-data", "trusted-folder",
                                      "allowed", "denied",      "unknown"};
    return kNames[static_cast<int>(standing)];
}

const char* kindName(Kind kind) {
    constexpr const char* kNames[] = {"program", "registry", "template", "file"};
    return kNames[static_cast<int>(kind)];
}

// The policy this user's program would apply: its data folder, MERVAK.INI's
// trusted folders and the remembered answers of the home folder.
TrustPolicy userPolicy(const QString& homeFolder) {
    const Settings settings = readSettings(PrivateProfile(settingsFilePath(homeFolder)));
    TrustPolicy policy;
    policy.configure(programDataFolder(executableFolder()),
                     splitTrustedFolders(settings.trustedFolders, QDir::homePath()),
                     TrustStore(QDir(homeFolder).filePath(TrustStore::kFileName)));
    return policy;
}

void printJson(const Template& t, Standing standing, const QList<AuditEntry>& entries,
               QTextStream& out) {
    QJsonArray guarded;
    for (const AuditEntry& entry : entries)
        guarded.append(QJsonObject{{"page", entry.page},
                                   {"area", entry.area},
                                   {"command", entry.command.keyword},
                                   {"kind", kindName(entry.command.kind)},
                                   {"target", entry.command.target}});
    const QJsonObject audit{{"file", t.TemplateFileName},
                            {"trusted", TrustPolicy::isTrusted(standing)},
                            {"standing", standingName(standing)},
                            {"guarded", guarded}};
    out << QString::fromUtf8(QJsonDocument(audit).toJson(QJsonDocument::Indented));
}

} // namespace

int runAudit(const QStringList& positional, bool json, CommandContext& c) {
    if (positional.size() != 1) {
        c.err << commandHelp(QStringLiteral("audit"));
        return kUsage;
    }
    Template t;
    const OpenOutcome outcome = openTemplate(t, positional[0]);
    if (outcome.error) {
        c.err << errorText(*outcome.error, positional[0]) << '\n';
        return kFailure;
    }
    const TrustPolicy policy = userPolicy(c.homeFolder);
    QFile file(t.TemplateFileName);
    const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const Standing standing = policy.standingOf(t.TemplateFileName, content);
    const QList<AuditEntry> entries = auditTemplate(t, policy);
    if (json) {
        printJson(t, standing, entries, c.out);
    } else {
        c.out << t.TemplateFileName << ": " << standingText(standing) << '\n';
        for (const AuditEntry& entry : entries)
            c.out << pick("pàgina ", "página ") << entry.page << pick("  àrea ", "  área ")
                  << entry.area << "  " << entry.command.keyword << "  " << entry.command.target
                  << '\n';
    }
    return entries.isEmpty() ? kSuccess : kWithNotes;
}

} // namespace mervak::cli
