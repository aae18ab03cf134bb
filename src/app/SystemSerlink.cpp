#include "app/SystemSerlink.h"

#include "platform/serial/SerlinkPort.h"

SerlinkFactory SystemSerlink() {
    return [](const SerlinkObserver& observer) -> std::unique_ptr<Serlink> {
        return std::make_unique<SerlinkPort>(observer.idle,
                                             [moved = observer.bytesMoved](const SerlinkProgress& progress) {
                                                 if (moved)
                                                     moved(progress.done, progress.expected);
                                             });
    };
}
