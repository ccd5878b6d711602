#pragma once
// Where the search window looks: the library's text index, the user's own documents and the reader's
// notes, three full-text tables of one form. Each is searched on a read-only handle of its own, and the
// results are merged best first. A result of the user's own or of a note is marked as such.
#include <QString>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/store/text_index.h"
#include "platform/store/text_query.h"

namespace library {

struct TextSource {
    QString connection;   // of the file that holds the table
    QString table;
    QString mark;         // "" for the library, kMineMark, kNoteMark
};

inline const QString kMineMark = QStringLiteral("My document");
inline const QString kNoteMark = QStringLiteral("Note");

// The sources of this run: the library's, and the user's own documents and notes where their files exist.
std::vector<TextSource> textSources();

// The mark of a result: TextHit::values holds the table's key, title, kind and date, then the mark.
inline constexpr int kMarkValue = 4;

// Searches the sources, on any one thread at a time; interrupt() may come from another.
class TextSearcher {
public:
    TextSearcher();
    ~TextSearcher();
    // The best `limit` rows of all sources together, best first; a kind, when given, keeps rows of that
    // kind only. Whether the library has its text index is told by libraryIndexed(). Raises the store's
    // errors of the library (those of the user's files leave their rows out) and 287 when interrupted.
    std::vector<store::TextHit> search(const std::vector<TextSource>& sources, const store::TextQuery& query,
                                       const QString& kind, int limit = 50);
    bool libraryIndexed() const { return libraryIndexed_; }
    void interrupt();

private:
    struct Open;
    std::mutex guard_;                      // over open_, which interrupt() reads
    std::vector<std::unique_ptr<Open>> open_;
    bool libraryIndexed_ = true;
};

}  // namespace library
