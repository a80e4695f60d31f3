#include "support/FakePointer.h"

#include <cmath>

namespace mervak::test {

void FakePointer::send(unsigned flags, int absoluteX, int absoluteY) {
    events_.append({flags, absoluteX, absoluteY});
    logTo(log_, QStringLiteral("pointer %1 %2 %3")
                    .arg(flags, 4, 16, QLatin1Char('0'))
                    .arg(absoluteX)
                    .arg(absoluteY));
    if ((flags & PointerFlag::Move) && !screen_.isEmpty())
        position_ = QPoint(static_cast<int>(std::lround(absoluteX * screen_.width() / 65535.0)),
                           static_cast<int>(std::lround(absoluteY * screen_.height() / 65535.0)));
}

} // namespace mervak::test
