// Any bytes as the index of a run that died: what makes sense can be followed, and all comes back when
// written.
#include "fuzz/Fuzz.h"

#include "files/RunIndex.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pintalux;
    const auto documents = ReadIndex(std::string(reinterpret_cast<const char*>(data), size));
    if (!documents) return 0;
    for (const RunDocument& document : *documents) {
        if (!MakesSense(document)) continue;
        Demand(document.cursor >= 0 && static_cast<std::size_t>(document.cursor) < document.order.size());
        for (const int place : document.order)
            Demand(place >= 0 && static_cast<std::size_t>(place) < document.states.size());
        for (const std::string& state : document.states)
            Demand(!IsStateName(state) || state.find("/BI") != std::string::npos);
    }
    Demand(ReadIndex(IndexText(*documents)) == documents);
    return 0;
}
