// The decoder process's loop: a request, its answer, until the parent leaves or has been silent for long.
#pragma once

namespace decoder {

/// Prepares everything, enters the shelter, says so, and serves. Returns the exit status.
int serve();

} // namespace decoder
