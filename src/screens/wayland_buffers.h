#pragma once

namespace amorra {

// The game paints in software. On Wayland, Qt 6.4 would still load the EGL
// stack (some 50 MB with a software GL driver) just to ask whether it may
// draw window frames. Where the compositor draws the frames itself, this
// keeps Qt on shared-memory buffers alone. Call once the application exists
// and before the first window shows; it does nothing elsewhere.
void useSharedMemoryBuffersOnWayland();

} // namespace amorra
