// The tone and neighbourhood filters, each beside its model.
#pragma once

#include "imageops/FilterTestSupport.h"

namespace pintalux {

inline const FilterCase kSharpen{
    "Sharpen", SharpenFilter, [](FilterModel& m, int level) { m.Sharpen(level); }, {1, 5, 10}};
inline const FilterCase kSoften{
    "Soften", SoftenFilter, [](FilterModel& m, int level) { m.Soften(level); }, {1, 2, 5, 10}};
inline const FilterCase kBrightness{"Brightness",
                                    BrightnessFilter,
                                    [](FilterModel& m, int level) { m.Brightness(level); },
                                    {-100, -55, -10, 10, 55, 100}};
inline const FilterCase kGrey{"Grey", GreyFilter, [](FilterModel& m, int) { m.Grey(); }, {0}};
inline const FilterCase kEmboss{
    "Emboss", EmbossFilter, [](FilterModel& m, int level) { m.Emboss(level); }, {100, 150, 200}};

} // namespace pintalux
