#pragma once
// The settings store's routines, over IniDocument. Paths are UTF-8.

#include "files/FileAccess.h"

#include <string>

namespace REGbas1 {

// False for an empty path or a file that is not there; any other state (also an error such as
// a denied access) counts as present.
bool FileExists(const std::string &path);

// The text before the last path separator ("\" or "/"); empty when there is none.
std::string GetFolderOfPath(const std::string &path);

// The leading integer of the value; 0 when the key is missing or holds no number.
int ReadIniInt(const std::string &section, const std::string &key, const std::string &file);

// The value, or the default when the key is missing, cut to size - 1 characters.
std::string ReadIniString(const std::string &section, const std::string &key, const std::string &defaultValue,
                          short size, const std::string &file);

// Updates or adds the key; failures are swallowed. Returns "1" on success and "0" otherwise.
std::string WriteIniString(const std::string &section, const std::string &key, const std::string &value,
                           const std::string &file);

// The same, telling why it failed. A file that is there but can't be read (too large, not an
// ordinary file) is left alone rather than replaced by one holding only this key.
zrt::FileWrite WriteIniValue(const std::string &section, const std::string &key, const std::string &value,
                             const std::string &file);

// Creates the file empty (as "open for output, close" does). False when it can't be created.
bool CreateEmptyFile(const std::string &path);

} // namespace REGbas1
