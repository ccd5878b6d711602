#include "library/text_sources.h"

#include "library/library_text.h"
#include "library/my_documents.h"
#include "library/reader.h"
#include "platform/basic/app_path.h"
#include "platform/basic/log.h"
#include "platform/documents/reader_store.h"
#include "shell/my_mod.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace library {

namespace {

constexpr int kCancelled = 287;

QString userFile(const QString& name) { return QDir(basic::UserPath()).filePath(name); }

}  // namespace

std::vector<TextSource> textSources() {
    std::vector<TextSource> sources{{shell::strLibraryCn1, kTextTable, QString()}};
    const QString mine = userFile(kMyDocumentsFile);
    if (QFileInfo::exists(mine))
        sources.push_back({QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + mine + u';', kTextTable, kMineMark});
    // The files' paths only: a search must never be the one to open (and maybe report on) the reader's file.
    const QString notes = userFile(kReaderFile);
    if (QFileInfo::exists(notes))
        sources.push_back({QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + notes + u';', documents::kNoteTextTable, kNoteMark});
    return sources;
}

struct TextSearcher::Open {
    QString connection;
    std::unique_ptr<store::TextIndex> index;
};

TextSearcher::TextSearcher() = default;
TextSearcher::~TextSearcher() = default;

std::vector<store::TextHit> TextSearcher::search(const std::vector<TextSource>& sources, const store::TextQuery& query,
                                                 const QString& kind, int limit) {
    std::vector<store::TextHit> all;
    for (size_t s = 0; s < sources.size(); ++s) {
        const TextSource& source = sources[s];
        const bool library = source.mark.isEmpty();
        try {
            store::TextIndex* index;
            {
                std::lock_guard lock(guard_);
                if (open_.size() <= s) open_.resize(s + 1);
                std::unique_ptr<Open>& o = open_[s];
                if (!o || o->connection != source.connection) {
                    o.reset();
                    o = std::make_unique<Open>(Open{source.connection, std::make_unique<store::TextIndex>(source.connection)});
                }
                index = o->index.get();
            }
            const bool indexed = index->hasTable(source.table);
            if (library) libraryIndexed_ = indexed;
            if (!indexed) continue;
            store::TextSearch search;
            search.table = source.table;
            search.columns = kTextColumns.mid(textKey, textDate + 1);
            search.weights = kTextWeights;
            search.snippetColumn = textBody;
            search.filterColumn = kTextColumns[textKind];
            search.filterValue = kind;
            search.limit = limit;
            for (store::TextHit& hit : index->search(search, query)) {
                hit.values << source.mark;
                all.push_back(std::move(hit));
            }
        } catch (const basic::RuntimeError& e) {
            if (library || e.number() == kCancelled) throw;
            // The user's own files must never cost the library's results.
            qCWarning(lcReader) << "search of" << source.table << "left out:" << e.description();
        }
    }
    std::stable_sort(all.begin(), all.end(), [](const store::TextHit& a, const store::TextHit& b) { return a.score > b.score; });
    if (all.size() > size_t(limit)) all.resize(size_t(limit));
    return all;
}

void TextSearcher::interrupt() {
    // A file being opened is not cut: opening an encrypted one is slow, and no key may wait for it.
    std::unique_lock lock(guard_, std::try_to_lock);
    if (!lock.owns_lock()) return;
    for (const std::unique_ptr<Open>& o : open_)
        if (o) o->index->interrupt();
}

}  // namespace library
