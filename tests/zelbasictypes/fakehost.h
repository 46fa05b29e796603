// SPDX-License-Identifier: Apache-2.0
// A host with the services that a test puts there, behind the library's own look-up.
#pragma once

namespace fakehost {

/// Puts a service in place of another of that name. The service stays the test's.
void offer(const char* name, void* service);
template <class T> void offer(T* service) { offer(T::interfaceName, service); }

/// Is called in front of every look-up; null for nothing.
void whenAsked(void (*call)());

/// Takes all services away, and the call above, and sets the counts of look-ups to 0.
void withdrawAll();

/// How often the name was looked up, found or not, since the last `withdrawAll`.
int lookUps(const char* name);

} // namespace fakehost
