#pragma once
// The texts of the Qt-free core (stats, common, the std::string answers of the charts) in the
// window's language. The core makes its texts in English and knows nothing of languages; the
// window passes each text it shows through here. A text with a translation of its own is
// replaced whole; otherwise each known phrase in it is replaced, and the numbers between them
// stay as they are. With no translation loaded every text comes back unchanged.

#include <QString>

#include <string>

namespace CoreTexts {

QString tr(const std::string &text);
QString tr(const char *text);

// The known phrases, for tests: every one must have a translation once one is loaded.
int phraseCount();
const char *phrase(int index);

} // namespace CoreTexts
