// Any bytes as a file of colours. What is read is written and read again.
#include "fuzz/Fuzz.h"

#include "base/NumberText.h"
#include "colour/CollectionFile.h"

#include <filesystem>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pintalux;
    static const std::string copy =
        (std::filesystem::temp_directory_path() / ("fuzz-" + std::to_string(::getpid()) + ".klc")).string();
    const BytesAsFile source({data, size});
    MayRefuse([&] {
        const std::vector<Colour> colours = ReadCollection(source.Path());
        Demand(colours.size() <= kCollectionCells);
        CollectionTexts texts;
        for (std::size_t i = 0; i < colours.size(); ++i) {
            Demand(colours[i] >= 0 && colours[i] <= kWhite);
            texts[i] = FormattedNumber(colours[i]);
        }
        WriteCollection(copy, texts);
        Demand(ReadCollection(copy) == colours);
    });
    ::unlink(copy.c_str());
    return 0;
}
