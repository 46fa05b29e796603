// SPDX-License-Identifier: Apache-2.0
// Operations on paths as texts, and the small ones on the file system.
//
// The separator is the backslash, and paths compare without regard to case. Operations with an
// `out` leave their input alone, and `out` may be that input; the others change the path in place.
// Those that take a `char*` behave as their wide twins, through the system's narrow calls.
#pragma once

#include "zelbasictypes/files/zelpath.h"

/// Borrowed texts that last: "\", "/" and ".".
const KorString& pathBackslash();
const KorString& pathSlash();
const KorString& pathFullStop();

// Texts; none of these looks at the file system, but for the current directory of makeAbsolute.

/// Brings a text to the normal form that ZelPath describes.
void normalize(KorString& path);
/// Appends `name` behind a backslash, or makes it the path when that is empty; normalises.
void join(KorString& path, const KorString& name);
/// What stands behind the last backslash; without the extension on request.
void fileName(const KorString& path, KorString& out, bool keepExtension);
/// The same behind the last slash or backslash and without extension, where a leading dot doesn't
/// begin an extension; always true.
bool baseName(const KorString& path, KorString& out);
/// "." when there is no directory in the path.
void parentDirectory(const KorString& path, KorString& out);
/// Without its dot; empty when the last component has none.
void extension(const KorString& path, KorString& out);
/// Appends when there is no extension.
void insertBeforeExtension(KorString& path, const KorString& text);
/// `newExtension` may have its dot or not; an empty one removes the extension.
void changeExtension(KorString& path, const KorString& newExtension);
/// "c:" becomes "c:\", as the platform wants it; anything else is copied.
void withDriveRoot(const KorString& path, KorString& out);
bool isAbsolute(const KorString& path);
bool isRelative(const KorString& path);
/// Resolves leading ".\" and "..\" against the current directory.
void makeAbsolute(KorString& path);
/// Takes each "\..\" away with the component in front, as far as there is one; true if something
/// changed.
bool collapseDots(KorString& path);
/// White space of the last component becomes "_"; true if something changed.
bool replaceSpaces(KorString& path);
/// Removes all white space.
void stripSpaces(KorString& path);
bool pathEqual(const KorString& a, const KorString& b);
bool pathNotEqual(const KorString& a, const KorString& b);
/// The lone backslash.
ZelPath rootPath();

// The file system. Nothing here reports more than its result says.

bool isFile(const KorString& path);
bool isFile(const char* path);
bool isDirectory(const KorString& path);
bool isDirectory(const char* path);
/// The platform's result: 0 on success.
std::int32_t removeFile(const KorString& path);
std::int32_t removeFile(const char* path);
bool renamePath(const KorString& from, const KorString& to);
bool renamePath(const char* from, const char* to);
/// True also for a directory that exists already. `recursive` makes what is missing above it.
bool makeDirectory(const KorString& path, bool recursive);
bool makeDirectory(const char* path, bool recursive);
/// `recursive` first removes what can be removed below it; the result is that of the directory.
bool removeDirectory(const KorString& path, bool recursive);
bool removeDirectory(const char* path, bool recursive);
/// Renames, where that can be done. Otherwise a file is copied, and of a directory each entry is
/// moved into `to`, over files that are there; a file that can't be renamed is copied and stays, as
/// `from` does itself. False when a copy or a directory failed; true also for a path that leads
/// nowhere. A link that leads back to where the move came from or goes to, or to what it would
/// replace, stays where it is.
bool moveTree(const KorString& from, const KorString& to);
bool moveTree(const char* from, const char* to);
/// The host's directory of that name, such as "temp"; empty without a directory service. Borrowed
/// from the service.
const KorString& zelDirectory(const char* name);
