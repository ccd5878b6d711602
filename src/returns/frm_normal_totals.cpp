// frmNormal's rate-wise totals: after every move and key the labels under a grid are worked out anew
// from the whole grid, the grand total first, then per band the amounts, taxes and cesses.
#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/forms/flex_grid.h"
#include "returns/frm_normal.h"
#include "returns/log.h"

#include <array>
#include <charconv>

namespace returns {

namespace {

using basic::Variant;

QString twoDecimals(double x) { return basic::Format(Variant(x), QStringLiteral("#0.00")); }

// The strict conversion of the totals pass: the whole text must be a number, else the addition fails.
// Plain decimals ("1000", " -12.50 ") are read here, as they are nearly every cell and the pass runs on
// every key; any other text goes to the platform's conversion, which knows its further forms.
bool strictValue(const QString& text, double& value) {
    QStringView t(text);
    while (!t.isEmpty() && t.front() == u' ') t = t.sliced(1);
    while (!t.isEmpty() && t.back() == u' ') t.chop(1);
    if (t.isEmpty()) return false;
    char buffer[32];
    bool plain = t.size() < qsizetype(sizeof buffer);
    int digits = 0, points = 0;
    for (qsizetype i = 0; plain && i < t.size(); ++i) {
        const char16_t c = t[i].unicode();
        if (c >= u'0' && c <= u'9') ++digits;
        else if (c == u'.') ++points;
        else if (!(i == 0 && (c == u'-' || c == u'+'))) plain = false;
        buffer[i] = char(c);
    }
    if (plain && digits > 0 && points <= 1) {
        const char* first = buffer + (buffer[0] == '+' ? 1 : 0);
        const auto [end, ec] = std::from_chars(first, buffer + t.size(), value);
        if (ec == std::errc() && end == buffer + t.size()) return true;
    }
    return ignore([&] { value = basic::CDbl(Variant(text)); }).number() == 0;
}

QStringView trimmedBlanks(const QString& text) {
    QStringView t(text);
    while (!t.isEmpty() && t.front() == u' ') t = t.sliced(1);
    while (!t.isEmpty() && t.back() == u' ') t.chop(1);
    return t;
}

struct Band {
    const char* key;
    QLabel* amount;
    QLabel* tax;
    QLabel* cess;
};

// One full recount of a grid: the grand total of column 9 over every row, and per band the sums of
// columns 6 to 8 of the rows whose trimmed rate is exactly the band's key. Every addition that fails
// is skipped by itself; the figures are written grand total first, then Amounts, Taxes, Cesses.
template <std::size_t N>
void totalsPass(const forms::FlexGrid* grid, QLineEdit* totalBox, const std::array<Band, N>& bands) {
    double grand = 0;
    std::array<double, N> amount{}, tax{}, cess{};
    const int rows = grid->Rows();
    for (int r = 1; r < rows; ++r) {
        double v = 0;
        if (strictValue(grid->TextMatrix(r, 9), v)) grand += v;
        const QStringView rate = trimmedBlanks(grid->TextMatrix(r, 5));
        for (std::size_t b = 0; b < N; ++b) {
            if (rate != QLatin1StringView(bands[b].key)) continue;
            if (strictValue(grid->TextMatrix(r, 6), v)) amount[b] += v;
            if (strictValue(grid->TextMatrix(r, 7), v)) tax[b] += v;
            if (strictValue(grid->TextMatrix(r, 8), v)) cess[b] += v;
            break;
        }
    }
    totalBox->setText(twoDecimals(grand));
    for (std::size_t b = 0; b < N; ++b) bands[b].amount->setText(twoDecimals(amount[b]));
    for (std::size_t b = 0; b < N; ++b) bands[b].tax->setText(twoDecimals(tax[b]));
    for (std::size_t b = 0; b < N; ++b) bands[b].cess->setText(twoDecimals(cess[b]));
}


}  // namespace

void frmNormal::procTotalCal1() {
    const std::array<Band, 5> bands = {{
        {"0", Label12, Label16, Label58},
        {"1", Label13, Label17, Label57},
        {"4", Label14, Label18, Label56},
        {"12.5", Label15, Label19, Label62},
        {"20", Label10, Label34, Label61},
    }};
    totalsPass(fg1, txtTotal, bands);
}

void frmNormal::procTotalCal2() {
    const std::array<Band, 6> bands = {{
        {"0", Label23, Label27, Label50},
        {"1", Label22, Label26, Label49},
        {"4", Label21, Label25, Label48},
        {"12.5", Label20, Label24, Label54},
        {"CST", Label35, Label36, Label53},
        {"20", Label45, Label44, Label52},
    }};
    totalsPass(fg2, txtTotal2, bands);
}

}  // namespace returns
