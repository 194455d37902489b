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
        job->done = true;
    }).detach();
}

} // namespace pintalux
