// The scanner library from its beginning again, for the next test.
#pragma once

#include "devices/sane/SaneCalls.h"
#include "devices/ScanJob.h"
#include "support/Waiting.h"

#include <gtest/gtest.h>

namespace pintalux {

/// Ends the library once the device of the scan before has come to rest, which nobody else waits for.
inline void EndScanning() {
    const auto last = std::make_shared<ScanJob>();
    last->work = [](ScanJob&) {};
    Start(last);
    ASSERT_TRUE(WaitFor([&last] { return last->done.load(); })) << "a device does not come to rest";
    EndSane();
}

} // namespace pintalux
