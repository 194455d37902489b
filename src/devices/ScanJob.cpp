#include "devices/ScanJob.h"

#include <mutex>
#include <thread>

namespace pintalux {

void Start(const std::shared_ptr<ScanJob>& job) {
    std::thread([job] {
        // A device that still rests, or closes, is not opened again meanwhile.
        static std::mutex oneAtATime;
        const std::lock_guard lock(oneAtATime);
        try {
            job->work(*job);
        } catch (...) {
            job->failure = CurrentError();
        }
        // What the work held, an open device perhaps, goes before anybody hears that it is done.
        job->work = nullptr;
        job->done = true;
    }).detach();
}

} // namespace pintalux
