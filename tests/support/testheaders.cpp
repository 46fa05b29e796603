// SPDX-License-Identifier: Apache-2.0
// Empty: what counts are the headers that it is compiled with.
