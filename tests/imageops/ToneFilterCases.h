// The tone and neighbourhood filters in one shape (work, live, bar, level), each beside its model.
#pragma once

#include "imageops/FilterTestSupport.h"

namespace pintalux {

inline void Sharpen(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t& level) {
    SharpenFilter(work, live, Pb, level);
}

inline void Soften(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t& level) {
    SoftenFilter(work, live, Pb, level);
}

inline void Brightness(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t& level) {
    BrightnessFilter(work, live, level, Pb);
}

inline void Grey(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t& /*level*/) {
    GreyFilter(work, live, Pb);
}

inline void Emboss(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t& level) {
    EmbossFilter(work, live, Pb, level);
}

inline void Invert(Surface& work, Surface& live, ProgressBar& /*Pb*/, std::int16_t& /*level*/) {
    InvertFilter(work, live);
}

inline const FilterCase kSharpen{
    "Sharpen", Sharpen, [](FilterModel& m, int level) { m.Sharpen(level); }, {1, 5, 10}};
inline const FilterCase kSoften{
    "Soften", Soften, [](FilterModel& m, int level) { m.Soften(level); }, {1, 2, 5, 10}};
inline const FilterCase kBrightness{"Brightness",
                                    Brightness,
                                    [](FilterModel& m, int level) { m.Brightness(level); },
                                    {-100, -55, -10, 10, 55, 100}};
inline const FilterCase kGrey{"Grey", Grey, [](FilterModel& m, int) { m.Grey(); }, {0}};
inline const FilterCase kEmboss{
    "Emboss", Emboss, [](FilterModel& m, int level) { m.Emboss(level); }, {100, 150, 200}};

} // namespace pintalux
