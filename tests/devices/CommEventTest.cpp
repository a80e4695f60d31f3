#include "devices/CommEvent.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

TEST(CommEvent, EveryCodeHasItsTextAndSlot) {
    struct Case {
        int code;
        const char* text;
        CommSlot slot;
    };
    const Case cases[] = {
        {3, "Change in CTS Detected", CommSlot::Status},
        {4, "Change in DSR Detected", CommSlot::Status},
        {5, "Change in CD Detected", CommSlot::Status},
        {6, "The Phone is Ringing", CommSlot::Status},
        {7, "End of File Detected", CommSlot::Status},
        {1001, "Break Received", CommSlot::Status},
        {1002, "CTS Timeout", CommSlot::Error},
        {1003, "DSR Timeout", CommSlot::Error},
        {1004, "Framing Error", CommSlot::Status},
        {1005, "Unknown error or event", CommSlot::Error},
        {1006, "Overrun Error", CommSlot::Error},
        {1007, "Carrier Detect Timeout", CommSlot::Error},
        {1008, "Receive Buffer Overflow", CommSlot::Error},
        {1009, "Parity Error", CommSlot::Status},
        {1010, "Transmit Buffer Full", CommSlot::Error},
        {1011, "Unknown error or event", CommSlot::Error},
        {0, "Unknown error or event", CommSlot::Error},
        {-1, "Unknown error or event", CommSlot::Error},
        {8, "Unknown error or event", CommSlot::Error},
    };
    for (const Case& c : cases) {
        const CommEventInfo info = commEventInfo(c.code);
        EXPECT_EQ(info.text, QString::fromLatin1(c.text)) << c.code;
        EXPECT_EQ(info.slot, c.slot) << c.code;
    }
}

} // namespace
} // namespace mervak
