// Any bytes as the line that a second instance leaves: a path comes out of it, or none.
#include "fuzz/Fuzz.h"

#include "files/FileNames.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pintalux;
    EndProgram = [](const std::string&, const std::string&) { std::abort(); };
    const BytesAsFile source({data, size});
    MayRefuse([&] {
        const std::string path = ReadTextFile(source.Path());
        Demand(path.size() <= size);
        if (!FileExists(path)) return;
        LongFileName(path);
    });
    return 0;
}
