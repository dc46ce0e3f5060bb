#pragma once
// The program's features, registered with the application before its first main frame is made.
// The desktop program's main() and the widget tests' main() register the same list.

namespace quillon {

class CFrameFeatures;

void RegisterAppFeatures(CFrameFeatures& features);

}  // namespace quillon
