#include "support/Waiting.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

namespace mervak::test {

bool waitFor(const std::function<bool()>& condition, int timeoutMs) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.elapsed() > timeoutMs)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QThread::msleep(2);
    }
    return true;
}

} // namespace mervak::test
