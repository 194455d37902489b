// The keys of a document: what they do while its image has the focus.
#pragma once

namespace pintalux {

class frmImage;

/// Connects the keys to a new document.
void ConnectKeys(frmImage& image);

} // namespace pintalux
