#pragma once

#include "text/Text.h"

/// Addresses of links and paths inside help files.
namespace text {

/// A path with both kinds of slash, as one with "/" between its parts and none around them, without
/// detours: ".." stands at most at its beginning. The bytes may be of any encoding that holds
/// ASCII.
Text plainPath(TextView path);

/// The address of a file or folder on this machine, from its absolute path.
Text fileAddress(TextView path);

/// An address with the bytes of "%20" and the like in their places.
Text unescaped(TextView address);

/// The other way: a path as an address, with "%" and digits for all bytes that addresses do not
/// have.
Text escapedAddress(TextView path);

} // namespace text
