#include "devices/ScanJob.h"

#include <thread>

namespace pintalux {

void Start(const std::shared_ptr<ScanJob>& job) {
    std::thread([job] {
        try {
            job->work(job->progress);
        } catch (...) {
            job->failure = CurrentError();
        }
        // What the work held, an open device perhaps, goes before anybody hears that it is done.
        job->work = nullptr;
        job->done = true;
    }).detach();
}

} // namespace pintalux
