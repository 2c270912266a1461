// The toolkit's own words (the file dialog, the menus of text fields) in Japanese, whatever the
// machine's language and installed translations.
#pragma once

class QCoreApplication;

namespace velm {

void InstallJapaneseTexts(QCoreApplication& application);

}  // namespace velm
