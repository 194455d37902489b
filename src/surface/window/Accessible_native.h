// What screen readers hear of our own widgets.
#pragma once

class QString;
class QWidget;

namespace pintalux {

/// The toolkit property of a widget that holds its role, a `QAccessible::Role`.
inline constexpr char kSpokenRole[] = "spokenRole";

/// The toolkit property of a text box that holds the bar beside it, which has the same name.
inline constexpr char kSpinnerBar[] = "spinnerBar";

/// What screen readers call a widget, and the bar beside it.
void NameForReaders(QWidget& widget, const QString& name);

/// Has the toolkit ask us about widgets that have a role of their own.
void SpeakForOurWidgets();

} // namespace pintalux
