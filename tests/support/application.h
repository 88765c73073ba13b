#pragma once

namespace qor::test {

/// An application for the tests that need an event loop or fonts; there can be one only in a process.
void NeedApplication();

} // namespace qor::test
