#pragma once

#include "action/GuardedCommand.h"
#include "session/TrustPolicy.h"
#include "template/Template.h"

#include <QList>
#include <cstdint>

namespace mervak {

// One guarded command a Template holds, where a press would run it.
struct AuditEntry {
    int16_t page = 0;
    int16_t area = 0; // the Area's number in the file, as the editor and `info` count them
    GuardedCommand command;
    friend bool operator==(const AuditEntry&, const AuditEntry&) = default;
};

// Every guarded command of the Template's Areas, in Area order, both branches of
// a SIM included, as `policy` judges them for a Template in the file's folder: a
// file inside that folder is left out, the others are shown resolved. An argument built at run time
// from inner blocks ("{|Executa {|RM }}") is listed as written.
QList<AuditEntry> auditTemplate(const Template& t, const TrustPolicy& policy);

} // namespace mervak
