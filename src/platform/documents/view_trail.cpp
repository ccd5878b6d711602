#include "platform/documents/view_trail.h"

#include "platform/documents/document_view.h"
#include "platform/documents/view_place.h"

#include <QShortcut>
#include <QWidget>

namespace documents {

void Trail::shown(TrailEntry entry) {
    if (TrailEntry* now = current(); now && now->sameDocument(entry)) return;
    entries_.resize(size_t(at_ + 1));
    entries_.push_back(std::move(entry));
    if (entries_.size() > size_t(kLongest)) entries_.erase(entries_.begin());
    at_ = int(entries_.size()) - 1;
}

const TrailEntry* Trail::peek(int step) const {
    const int to = at_ + step;
    return at_ < 0 || to < 0 || to >= int(entries_.size()) ? nullptr : &entries_[size_t(to)];
}

void Trail::move(int step) {
    if (peek(step)) at_ += step;
}

namespace {

class ViewTrail : public QObject {
public:
    ViewTrail(QWidget* window, DocumentView* view, std::function<QString()> folder,
              std::function<void(const QByteArray&, const QString&)> show)
        : QObject(window), view_(view), folder_(std::move(folder)), show_(std::move(show)) {
        connect(view, &DocumentView::leaving, this, [this] {
            if (TrailEntry* now = trail_.current()) now->place = placeOf(view_);
        });
        connect(view, &DocumentView::shown, this, [this] {
            if (stepping_) return;
            trail_.shown({QString(), view_->document(), folder_(), QString()});
        });
        for (const auto& [key, step] : {std::pair{Qt::Key_Left, -1}, {Qt::Key_Right, 1}}) {
            auto* shortcut = new QShortcut(QKeySequence(Qt::ALT | key), window);
            connect(shortcut, &QShortcut::activated, this, [this, step = step] { go(step); });
        }
    }

private:
    void go(int step) {
        const TrailEntry* to = trail_.peek(step);
        if (!to) return;
        const TrailEntry target = *to;
        stepping_ = true;
        show_(target.bytes, target.folder);
        stepping_ = false;
        trail_.move(step);
        goToPlace(view_, target.place);
    }

    DocumentView* view_;
    std::function<QString()> folder_;
    std::function<void(const QByteArray&, const QString&)> show_;
    Trail trail_;
    bool stepping_ = false;
};

}  // namespace

void attachTrail(QWidget* window, DocumentView* view, std::function<QString()> folder,
                 std::function<void(const QByteArray&, const QString&)> show) {
    new ViewTrail(window, view, std::move(folder), std::move(show));
}

}  // namespace documents
