#include "qt/endsignals.h"

#include "base/platform.h"

#include <QFile>
#include <QSocketNotifier>

#include <utility>

namespace norvik {

EndSignals::EndSignals(std::function<void()> before, QObject* parent)
    : QObject(parent), before_(std::move(before)) {
    const platform::Handle ends = platform::ListenForEndSignals();
    if (ends == platform::NoHandle) {
        return;
    }
    auto* notifier = new QSocketNotifier(ends, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, ends] {
        QFile pipe;
        char number = 0;
        if (pipe.open(static_cast<int>(ends), QIODevice::ReadOnly | QIODevice::Unbuffered) &&
            pipe.getChar(&number)) {
            before_();
            platform::EndBySignal(static_cast<unsigned char>(number));
        }
    });
}

}  // namespace norvik
