// SPDX-License-Identifier: Apache-2.0
/// @file
/// Operations on paths as texts, and small ones on the file system.
///
/// The separator is the backslash, and paths are compared without regard to case. Functions with an
/// `out` parameter leave their input alone, and `out` may be that input; the others change the path
/// in place. Functions with a `char*` behave as their wide counterparts, through the system's
/// narrow calls. Any thread may call these.
#pragma once

#include "zelbasictypes/files/zelpath.h"

/// Borrowed texts that live as long as the module: a backslash, a slash and a full stop.
/// @{
const KorString& pathBackslash();
const KorString& pathSlash();
const KorString& pathFullStop();
/// @}

// Texts; none of these looks at the file system, but for the current directory of makeAbsolute.

/// Brings a text to the normal form described at ZelPath.
void normalize(KorString& path);
/// Appends a backslash and `name`, or makes `name` the path when that is empty; then normalises.
void join(KorString& path, const KorString& name);
/// The text after the last backslash; without its extension on request.
void fileName(const KorString& path, KorString& out, bool keepExtension);
/// The text after the last slash or backslash, without extension. A leading dot doesn't start an
/// extension here. Always true.
bool baseName(const KorString& path, KorString& out);
/// Everything before the last component; a full stop when the path has no directory.
void parentDirectory(const KorString& path, KorString& out);
/// The extension without its dot; empty when the last component has none.
void extension(const KorString& path, KorString& out);
/// Inserts `text` before the extension, or appends it when there is none.
void insertBeforeExtension(KorString& path, const KorString& text);
/// Replaces the extension. `newExtension` may have a leading dot; an empty one removes the
/// extension.
void changeExtension(KorString& path, const KorString& newExtension);
/// A bare drive such as "c:" gets the backslash that the platform wants; anything else is copied.
void withDriveRoot(const KorString& path, KorString& out);
/// Whether the path starts with a separator or a drive.
/// @{
bool isAbsolute(const KorString& path);
bool isRelative(const KorString& path);
/// @}
/// Resolves leading components that are one or two full stops against the current directory.
void makeAbsolute(KorString& path);
/// Removes each component of two full stops together with the component before it, as far as there
/// is one. True if something changed.
bool collapseDots(KorString& path);
/// Replaces white space in the last component by "_". True if something changed.
bool replaceSpaces(KorString& path);
/// Removes all white space.
void stripSpaces(KorString& path);
/// Compares without regard to case.
/// @{
bool pathEqual(const KorString& a, const KorString& b);
bool pathNotEqual(const KorString& a, const KorString& b);
/// @}
/// The path that is a single backslash.
ZelPath rootPath();

// The file system. Nothing here reports more than its result says.

/// Whether the path leads to a regular file or to a directory. False when it leads nowhere.
/// @{
bool isFile(const KorString& path);
bool isFile(const char* path);
bool isDirectory(const KorString& path);
bool isDirectory(const char* path);
/// @}
/// Deletes a file. 0 on success.
/// @{
std::int32_t removeFile(const KorString& path);
std::int32_t removeFile(const char* path);
/// @}
/// Renames a file or directory; fails when `to` exists.
/// @{
bool renamePath(const KorString& from, const KorString& to);
bool renamePath(const char* from, const char* to);
/// @}
/// Makes a directory; true also when it exists already. `recursive` makes missing parents too.
/// @{
bool makeDirectory(const KorString& path, bool recursive);
bool makeDirectory(const char* path, bool recursive);
/// @}
/// Removes an empty directory. `recursive` first removes what can be removed below it. The result
/// is that of removing the directory itself.
/// @{
bool removeDirectory(const KorString& path, bool recursive);
bool removeDirectory(const char* path, bool recursive);
/// @}
/// Renames `from` to `to` when the system can. Otherwise a file is copied. Each entry of a
/// directory is moved into `to`, over existing files; a file that can't be renamed is copied and
/// stays, and so does `from` itself.
///
/// False when a copy or a directory failed. True also for a path that leads nowhere. A link that
/// leads back to where the move came from or goes to, or to what it would replace, stays where it
/// is.
/// @{
[[nodiscard]] bool moveTree(const KorString& from, const KorString& to);
[[nodiscard]] bool moveTree(const char* from, const char* to);
/// @}
/// The host's directory for a purpose, such as "temp". Borrowed from the directory service; empty
/// when there is no service.
const KorString& zelDirectory(const char* name);
