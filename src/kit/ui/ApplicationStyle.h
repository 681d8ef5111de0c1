#pragma once

namespace zq {

/// Gives the application object its look, from the named colours, light or dark as the appearance
/// has it now and whenever that changes. Called once, after the application object was made.
void installApplicationStyle();

} // namespace zq
