// What waits for the user must not outlast the run that asked: a signal, or a procedure that ran meanwhile,
// may have stopped it.
#pragma once

#include <QTimer>
#include <functional>

namespace velm {

// While it lives, calls `end` once the run has been stopped. The toolkit's events must be delivered
// meanwhile.
class QtWaitWatch {
  public:
    explicit QtWaitWatch(std::function<void()> end);

  private:
    QTimer timer_;
};

}  // namespace velm
