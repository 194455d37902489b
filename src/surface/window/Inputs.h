// The ordinary input controls, one header each.
//
// Values behave the same everywhere: an assignment from code that changes a value runs the event nested in
// it, one that keeps the value runs nothing, one out of range is error 380 and changes nothing. What the user
// does by hand runs the same event. The toolkit's own signals never decide the order.
#pragma once

#include "surface/window/Buttons.h"
#include "surface/window/ComboBox.h"
#include "surface/window/ListBox.h"
#include "surface/window/Options.h"
#include "surface/window/ProgressBar.h"
#include "surface/window/ScrollBar.h"
#include "surface/window/Slider.h"
#include "surface/window/SSTab.h"
#include "surface/window/TextBox.h"
