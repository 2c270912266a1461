// The pace of the screen: what a script draws is shown once a frame, however often it draws.
#pragma once

namespace velm {

// Something whose news are shown once a frame. Lives on the toolkit's thread.
class FrameClient {
  public:
    FrameClient();
    virtual ~FrameClient();
    FrameClient(const FrameClient&) = delete;
    FrameClient& operator=(const FrameClient&) = delete;

    // Whether there is something to show. Asked often: it must be quick.
    virtual bool HasNews() = 0;
    virtual void ShowNews() = 0;
};

// Shows all news when the last frame is long enough ago.
void ShowDueFrame();

// From now on the news are also shown before the toolkit waits for events in a loop of its own, as a
// modal window or a menu does: nobody pumps meanwhile. Called once, after the application has started.
void StartFrames();

}  // namespace velm
