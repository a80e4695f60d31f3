#include "session/TemplateAudit.h"

#include "action/ActionTextSplitter.h"
#include "action/CommandBlock.h"
#include "action/ConditionalBlock.h"
#include "platform/PathResolver.h"

#include <QFileInfo>

namespace mervak {

namespace {

// SIM branches nest ActionTexts; deeper ones only repeat what these show.
constexpr int kMaxDepth = 16;

// The keywords whose arguments name what they do.
std::optional<GuardedCommand::Kind> kindOf(const QString& keyword) {
    using Kind = GuardedCommand::Kind;
    if (keyword == u"EXECUTA")
        return Kind::StartProgram;
    if (keyword == u"REG")
        return Kind::WriteSettings;
    if (keyword == u"CARREGA" || keyword == u"CARGA")
        return Kind::OpenTemplate;
    for (const char* reader : {"SONA", "SUENA", "ENGANXA", "ENGANCHA", "LLEGEIX", "LEE"})
        if (keyword == QLatin1String(reader))
            return Kind::ReadFile;
    return std::nullopt;
}

class Auditor {
public:
    Auditor(const TrustPolicy& policy, QString folder)
        : policy_(policy), folder_(std::move(folder)) {}

    void area(const Area& a, int16_t index) {
        page_ = a.Page;
        index_ = index;
        if (!a.Clip.isEmpty())
            add(GuardedCommand{GuardedCommand::Kind::ReadFile, QStringLiteral("CLIP"),
                               resolveStoredPath(a.Clip, folder_)});
        actionText(a.ActionText, 0);
    }

    QList<AuditEntry> entries;

private:
    void actionText(const QString& text, int depth) {
        if (depth > kMaxDepth)
            return;
        for (const ActionStep& step : ActionTextSplitter::split(text)) {
            if (step.kind == ActionStep::Kind::Command) {
                block(step.text);
            } else if (step.kind == ActionStep::Kind::Conditional) {
                const ConditionalBlock conditional = ConditionalBlock::parse(step.text);
                actionText(conditional.whenEqual, depth + 1);
                actionText(conditional.otherwise, depth + 1);
            }
        }
    }

    void block(const QString& text) {
        const DecodedBlock decoded = CommandBlock::decode(text);
        const bool builtAtRunTime =
            decoded.argument.contains(u'{') || decoded.argument.contains(u'|');
        if (!builtAtRunTime) {
            if (const auto command = GuardedCommand::of(decoded.keyword, decoded.argument, folder_))
                add(*command);
            return;
        }
        if (const auto kind = kindOf(decoded.keyword))
            entries.append(
                {page_, index_, GuardedCommand{*kind, decoded.keyword, decoded.argument}});
    }

    // Files are shown where they really are, links and ".." resolved.
    void add(GuardedCommand command) {
        if (!policy_.isGuarded(command, folder_))
            return;
        if (command.namesFile())
            command.target = resolvedPath(command.target);
        entries.append({page_, index_, command});
    }

    const TrustPolicy& policy_;
    QString folder_;
    int16_t page_ = 0;
    int16_t index_ = 0;
};

} // namespace

QList<AuditEntry> auditTemplate(const Template& t, const TrustPolicy& policy) {
    Auditor auditor(policy, QFileInfo(t.TemplateFileName).absolutePath());
    for (int16_t i = 1; i <= t.AreaCount(); ++i)
        auditor.area(t.area(i), i);
    return auditor.entries;
}

} // namespace mervak
