// See qt_removal.h.
#include "platform/qt/qt_removal.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <algorithm>
#include <vector>

namespace velm {

namespace {

std::uint64_t lastScope = 0;

std::vector<std::uint64_t>& OpenScopes() {
    static std::vector<std::uint64_t> scopes;
    return scopes;
}

struct Removed {
    QPointer<QObject> object;
    std::uint64_t birth;
    std::uint64_t end;  // the last scope that can be about it
};

std::vector<Removed>& Waiting() {
    static std::vector<Removed> waiting;
    return waiting;
}

// The toolkit deletes an object later only from a level of events that is nearer to the ground than the
// one where it was told to. This puts the telling one level up, so that the next pump deletes.
class DeletesSoon : public QObject {
  public:
    explicit DeletesSoon(QObject& object) : object_(&object) {}
    bool event(QEvent* event) override {
        object_->deleteLater();
        return event != nullptr;
    }

  private:
    QObject* object_;
};

void DeleteSoon(QObject& object) {
    DeletesSoon soon(object);
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&soon, &event);
}

bool IsFree(const Removed& removed) {
    const auto isAboutIt = [&](std::uint64_t scope) {
        return scope > removed.birth && scope <= removed.end;
    };
    return std::none_of(OpenScopes().begin(), OpenScopes().end(), isAboutIt);
}

// What stands in an object is deleted with it, and may be older.
bool IsWithin(const QObject* inner, const QObject& outer) {
    while (inner != nullptr && inner != &outer) inner = inner->parent();
    return inner != nullptr;
}

}  // namespace

ToolkitScope::ToolkitScope() { OpenScopes().push_back(++lastScope); }
ToolkitScope::~ToolkitScope() { OpenScopes().pop_back(); }

bool IsToolkitAtWork() { return !OpenScopes().empty(); }

std::uint64_t LastToolkitScope() { return lastScope; }

void RemoveWhenFree(QObject& object, std::uint64_t birth) {
    Removed removed{&object, birth, lastScope};
    for (const Removed& inner : Waiting()) {
        if (IsWithin(inner.object, object)) removed.birth = std::min(removed.birth, inner.birth);
    }
    if (IsFree(removed)) {
        DeleteSoon(object);
    } else {
        Waiting().push_back(removed);
    }
}

void DeleteWhatIsFree() {
    std::erase_if(Waiting(), [](const Removed& removed) {
        if (!IsFree(removed)) return false;
        if (removed.object != nullptr) DeleteSoon(*removed.object);
        return true;
    });
}

}  // namespace velm
