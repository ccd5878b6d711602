#pragma once
// Back and forward between the documents a window has shown, as a browser steps (Alt+Left, Alt+Right):
// a document shown in any other way drops the ones that lay ahead. Each step comes back to the place
// the reader left.
#include <QByteArray>
#include <QString>
#include <functional>
#include <vector>

class QWidget;

namespace documents {

class DocumentView;

struct TrailEntry {
    QString key;        // the owner's name of the document; empty where the bytes tell it
    QByteArray bytes;
    QString folder;     // where its links lead
    QString place;      // see view_place.h
    bool sameDocument(const TrailEntry& other) const {
        return key.isEmpty() ? bytes == other.bytes : key == other.key;
    }
};

class Trail {
public:
    // A document now shown after the current one: those ahead are dropped. The current one shown again
    // stays as it is. The oldest go beyond kLongest.
    void shown(TrailEntry entry);
    TrailEntry* current() { return at_ < 0 ? nullptr : &entries_[size_t(at_)]; }
    // The entry `step` away from the current one (-1 back, 1 forward), nullptr beyond either end.
    const TrailEntry* peek(int step) const;
    void move(int step);
    int size() const { return int(entries_.size()); }

    static constexpr int kLongest = 100;

private:
    std::vector<TrailEntry> entries_;
    int at_ = -1;
};

// Gives `window` Alt+Left and Alt+Right over what `view` shows: `folder` tells the link folder of the
// document shown, `show` shows bytes with their link folder again.
void attachTrail(QWidget* window, DocumentView* view, std::function<QString()> folder,
                 std::function<void(const QByteArray&, const QString&)> show);

}  // namespace documents
