#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/environment.h"

/// The parameter text of a batch run: items, each a slash, a key, a colon and a value, as in
/// /sektion:15/autostart. Keys are compared without letter case; values keep theirs. Nothing here reports
/// anything about a malformed item. An error inside these procedures is shown, and the procedure ends with
/// what its result held.
namespace prot {

/// The items of `sCommandline`; element 0 stands before the first slash, the items follow from 1. A text that
/// holds "auswertungsrahmen:" is scanned for the known keys in the order of their table instead of split,
/// because names of report frameworks may hold slashes; bMitAutostart: that scan looks for the flag
/// "autostart" too.
std::vector<std::string> gCommandlineSplit(std::string_view sCommandline, bool bMitAutostart,
                                           Environment& environment);

/// The parts of `sCommandline` between slashes that begin in none of the items which gCommandlineSplit
/// returns from 1 on: what stands before the first slash; in a text that is scanned, also what begins with no
/// known key, or with one that another item before it has. Blank parts are left out.
std::vector<std::string> unread_parts(std::string_view sCommandline);

/// Finds `sKey` (lower case) and returns its whole item, key and value, without the slash; empty when it is
/// absent. The value may hold slashes as long as no colon follows them before the next key.
std::string gbCommandOk(std::string_view sKey, std::string_view sCommandline, Environment& environment);

/// The key of an item that begins with a slash; empty for an item without a colon.
std::string psCommand(std::string_view sItem, Environment& environment);

/// The value of an item that begins with a slash; empty for an item without a colon.
std::string psComWert(std::string_view sItem, Environment& environment);

/// Whether an item of `sText` begins with `sKey`. `sText` is one item without its slash, or a whole parameter
/// text.
bool pbCommandVorhanden(std::string_view sText, std::string_view sKey);

}  // namespace prot
