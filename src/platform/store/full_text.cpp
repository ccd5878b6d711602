#include "platform/store/full_text.h"

#include "platform/basic/words.h"

#include <QString>
#include <sqlite3.h>

#include <cmath>
#include <cstring>
#include <vector>

// The tokenizer interface of SQLite's FTS3/4 module (its header fts3_tokenizer.h is not installed).
struct sqlite3_tokenizer_module;
struct sqlite3_tokenizer {
    const sqlite3_tokenizer_module* pModule;
};
struct sqlite3_tokenizer_cursor {
    sqlite3_tokenizer* pTokenizer;
};
struct sqlite3_tokenizer_module {
    int iVersion;
    int (*xCreate)(int argc, const char* const* argv, sqlite3_tokenizer** tokenizer);
    int (*xDestroy)(sqlite3_tokenizer* tokenizer);
    int (*xOpen)(sqlite3_tokenizer* tokenizer, const char* input, int bytes, sqlite3_tokenizer_cursor** cursor);
    int (*xClose)(sqlite3_tokenizer_cursor* cursor);
    int (*xNext)(sqlite3_tokenizer_cursor* cursor, const char** token, int* bytes, int* start, int* end,
                 int* position);
};

namespace store {

namespace {

// One text being split. Runs of ASCII letters and digits, nearly all of an English text, are cut and
// lower-cased straight from the UTF-8 bytes; a run that holds any other character goes through
// basic::splitWords, whose words wait in `pending` with their byte offsets.
struct WordCursor {
    sqlite3_tokenizer_cursor base;
    const unsigned char* input = nullptr;
    int bytes = 0;
    int at = 0;
    int position = 0;
    struct Pending {
        QByteArray token;
        int start, end;
    };
    std::vector<Pending> pending;
    size_t nextPending = 0;
    QByteArray token;
};

bool asciiWordByte(unsigned char b) {
    return (b >= '0' && b <= '9') || (b >= 'a' && b <= 'z') || (b >= 'A' && b <= 'Z');
}

int create(int, const char* const*, sqlite3_tokenizer** tokenizer) {
    *tokenizer = new sqlite3_tokenizer{};
    return SQLITE_OK;
}

int destroy(sqlite3_tokenizer* tokenizer) {
    delete tokenizer;
    return SQLITE_OK;
}

int open(sqlite3_tokenizer*, const char* input, int bytes, sqlite3_tokenizer_cursor** cursor) {
    auto* c = new WordCursor{};
    c->input = reinterpret_cast<const unsigned char*>(input);
    c->bytes = bytes < 0 ? int(std::strlen(input)) : bytes;
    *cursor = &c->base;
    return SQLITE_OK;
}

int close(sqlite3_tokenizer_cursor* cursor) {
    delete reinterpret_cast<WordCursor*>(cursor);
    return SQLITE_OK;
}

// The words of a run that holds other characters than ASCII, with their offsets in the input.
void splitRun(WordCursor* c, int start, int end) {
    const QString run = QString::fromUtf8(reinterpret_cast<const char*>(c->input + start), end - start);
    std::vector<int> byteAt;
    byteAt.reserve(size_t(run.size()) + 1);
    int offset = start;
    for (const QChar ch : run) {
        byteAt.push_back(offset);
        const char16_t u = ch.unicode();
        offset += u < 0x80 ? 1 : u < 0x800 ? 2 : ch.isHighSurrogate() ? 4 : ch.isLowSurrogate() ? 0 : 3;
    }
    byteAt.push_back(offset);
    c->pending.clear();
    c->nextPending = 0;
    for (const basic::Word& w : basic::splitWords(run))
        c->pending.push_back({w.folded.toUtf8(), byteAt[size_t(w.position)], byteAt[size_t(w.position + w.length)]});
}

int next(sqlite3_tokenizer_cursor* cursor, const char** token, int* bytes, int* start, int* end, int* position) {
    auto* c = reinterpret_cast<WordCursor*>(cursor);
    while (c->nextPending >= c->pending.size()) {
        while (c->at < c->bytes && c->input[c->at] < 0x80 && !asciiWordByte(c->input[c->at])) ++c->at;
        if (c->at >= c->bytes) return SQLITE_DONE;
        const int from = c->at;
        bool ascii = true;
        while (c->at < c->bytes && (c->input[c->at] >= 0x80 || asciiWordByte(c->input[c->at]))) {
            ascii = ascii && c->input[c->at] < 0x80;
            ++c->at;
        }
        if (!ascii) {
            splitRun(c, from, c->at);
            continue;
        }
        c->token.resize(c->at - from);
        for (int i = from; i < c->at; ++i) {
            const unsigned char b = c->input[i];
            c->token[i - from] = char(b >= 'A' && b <= 'Z' ? b + ('a' - 'A') : b);
        }
        *token = c->token.constData();
        *bytes = int(c->token.size());
        *start = from;
        *end = c->at;
        *position = c->position++;
        return SQLITE_OK;
    }
    const WordCursor::Pending& w = c->pending[c->nextPending++];
    *token = w.token.constData();
    *bytes = int(w.token.size());
    *start = w.start;
    *end = w.end;
    *position = c->position++;
    return SQLITE_OK;
}

const sqlite3_tokenizer_module kWords = {0, create, destroy, open, close, next};

// matchinfo 'pcnalx': phrases p, columns c, rows n, average tokens a[c], tokens of this row l[c], then for
// each phrase and column: hits in this row, hits in all rows, rows with a hit.
void bm25(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    const auto* info = static_cast<const unsigned*>(sqlite3_value_blob(argv[0]));
    const int size = sqlite3_value_bytes(argv[0]) / int(sizeof(unsigned));
    if (!info || size < 3) return sqlite3_result_double(ctx, 0);
    const unsigned phrases = info[0], columns = info[1], rows = info[2];
    if (size_t(size) < 3 + 2 * size_t(columns) + 3 * size_t(phrases) * columns)
        return sqlite3_result_error(ctx, "vorlan_bm25 wants matchinfo(t, 'pcnalx')", -1);
    const unsigned* average = info + 3;
    const unsigned* length = average + columns;
    const unsigned* hits = length + columns;
    constexpr double k1 = 1.2, b = 0.75;
    double score = 0;
    for (unsigned p = 0; p < phrases; ++p) {
        for (unsigned col = 0; col < columns; ++col) {
            const unsigned* x = hits + 3 * (p * columns + col);
            if (x[0] == 0) continue;
            const double weight = int(col) + 1 < argc ? sqlite3_value_double(argv[col + 1]) : 1.0;
            const double withHit = x[2];
            const double idf = std::log(1 + (rows - withHit + 0.5) / (withHit + 0.5));
            const double relative = average[col] ? double(length[col]) / average[col] : 1.0;
            score += weight * idf * (x[0] * (k1 + 1)) / (x[0] + k1 * (1 - b + b * relative));
        }
    }
    sqlite3_result_double(ctx, score);
}

}  // namespace

void registerFullText(sqlite3* db) {
    // This version of SQLite lets a tokenizer be added only once the handle allows it.
    sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 1, nullptr);
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, "SELECT fts3_tokenizer(?, ?)", -1, &statement, nullptr) == SQLITE_OK) {
        const sqlite3_tokenizer_module* module = &kWords;
        sqlite3_bind_text(statement, 1, kWordTokenizer, -1, SQLITE_STATIC);
        sqlite3_bind_blob(statement, 2, &module, sizeof module, SQLITE_STATIC);
        sqlite3_step(statement);
    }
    sqlite3_finalize(statement);
    sqlite3_create_function_v2(db, "vorlan_bm25", -1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, bm25, nullptr,
                               nullptr, nullptr);
}

}  // namespace store
