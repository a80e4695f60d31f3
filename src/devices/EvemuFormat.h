#pragma once

#include "devices/InputCapabilities.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <vector>

namespace mervak {

// Reads the text evemu-record writes, one line at a time: the header (N: name,
// I: ids, P: properties, B: capability bits, A: axis ranges) and then the events
// (E: seconds.micros type code value). Comments, "#" to the end of a line, and
// the L: and S: state lines are skipped. Event times count from the first event.
class EvemuParser {
public:
    // False, with `error` in plain words, for a line that is not evemu text.
    bool feed(const QByteArray& line, QString* error);
    // The first event was read: the capabilities are complete.
    bool headerDone() const { return headerDone_; }
    const InputCapabilities& capabilities() const { return capabilities_; }
    std::vector<InputEvent> takeEvents();

private:
    bool readBits(const QList<QByteArray>& fields, QString* error);
    bool readAxis(const QList<QByteArray>& fields, QString* error);
    bool readEvent(const QList<QByteArray>& fields, QString* error);

    InputCapabilities capabilities_;
    std::vector<InputEvent> events_;
    std::array<int, EV_CNT> bitOffset_{}; // next bit of each type's mask
    int propertyOffset_ = 0;
    bool headerDone_ = false;
    int64_t firstTimeUs_ = -1;
};

// The header of a recording of a device with `capabilities`, as evemu-record writes it.
QByteArray evemuHeader(const InputCapabilities& capabilities);
// One "E:" line; `timeUs` from the start of the recording.
QByteArray evemuEventLine(const InputEvent& event);

} // namespace mervak
