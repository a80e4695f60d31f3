#include "devices/InputEventSource.h"

#include "devices/LibevdevSource.h"
#include "devices/RecordingSource.h"

namespace mervak {

std::unique_ptr<InputEventSource> makeInputEventSource(const QString& port) {
    if (port.startsWith(QLatin1String("/dev/")))
        return std::make_unique<LibevdevSource>(port);
    return std::make_unique<RecordingSource>(port);
}

} // namespace mervak
