#include "returns/form_ten_lines.h"

#include "platform/basic/indian_amount.h"

#include <QDate>
#include <QSet>
#include <cmath>

namespace returns {

namespace {

// The boxes of the sales page that Export never writes: the form keeps what is typed in them there too.
const QSet<QString>& salesPageColumns() {
    static const QSet<QString> columns = [] {
        QSet<QString> s{"ISS11", "ISS12", "ISS15", "ISS16", "ISS18", "ISS35", "ISS36", "ISS38", "A2T5", "A2T6", "A2T8"};
        for (int c = 1; c <= 8; ++c) {
            s << QStringLiteral("ISS2%1").arg(c) << QStringLiteral("ES1%1").arg(c) << QStringLiteral("SX1%1").arg(c);
            if (c >= 4) s << QStringLiteral("ES2%1").arg(c) << QStringLiteral("SX2%1").arg(c);
        }
        return s;
    }();
    return columns;
}

// The five columns of the last page, which nothing of the system fills, hold the lines typed below the
// net tax and the payment's total.
const QHash<QString, QString>& lastPageColumns() {
    static const QHash<QString, QString> columns{{"I", "I_11"}, {"L", "I_12"}, {"M", "I_22"}, {"O", "I_xiii"},
                                                 {"PYT5", "I_xvi"}};
    return columns;
}

const QStringList kSalesHeadings = {"Commodity", "Schedule entry / sub entry No., if any", "Rate of tax (%)",
                                    "Total turnover (Rs.)", "Exemption claimed (Rs.)", "Taxable turnover (Rs.)",
                                    "Output tax collected (Rs.)", "Output tax due (Rs.)"};
const std::vector<double> kSalesWidths = {30, 20, 12, 25, 25, 25, 24.5, 24.5};

struct RateLine {
    const char* line;
    const char* rate;
};
const RateLine kLocalSales[] = {{"SL1", "0"}, {"SL2", "1"}, {"SL3", "4"}, {"SL4", "12.5"}, {"SL6", "20"}};
const RateLine kLocalPurchases[] = {{"C1_1", "0"}, {"C1_2", "1"}, {"C1_3", "4"}, {"C1_4", "12.5"}, {"C1_6", "20"}};
// The page has no 20 % line of inter-state purchases; the form shows what its total holds beyond the others.
const RateLine kInterStatePurchases[] = {{"C2_1", "0"}, {"C2_2", "1"}, {"C2_4", "4"}, {"C2_5", "12.5"}, {"C2_6", "20"}};

class Builder {
public:
    std::vector<FormBlock> blocks;
    std::vector<FormBox> boxes;

    FormCell box(const QString& name, BoxKind kind, BoxShape shape, const QString& caption, int span = 1) {
        FormBox b{name, kind, shape, caption, {}, {}};
        if ((kind == BoxKind::Typed || kind == BoxKind::Computed) && salesPageColumns().contains(name)) {
            b.pageTable = QStringLiteral("tblMPage1");
            b.pageColumn = name;
        } else if (lastPageColumns().contains(name)) {
            b.pageTable = QStringLiteral("tblMPage5");
            b.pageColumn = lastPageColumns().value(name);
        }
        boxes.push_back(b);
        return FormCell{{}, name, span};
    }
    static FormCell text(const QString& t, int span = 1) { return FormCell{t, {}, span}; }

    // A line of sales: commodity, schedule entry, rate, then the five figures. `figures` says whose the
    // total turnover and the tax collected are; `dueTyped` whether the tax due is typed or worked out.
    FormRow salesLine(const QString& line, const QString& label, const QString& rate, BoxKind figures, bool dueTyped,
                      const QStringList& headings = kSalesHeadings) {
        FormRow row{FormRow::Plain, line, {}};
        const auto caption = [&](int c) { return headings[c] + QStringLiteral(", ") + label; };
        row.cells.push_back(box(line + "1", BoxKind::Typed, BoxShape::Text, caption(0)));
        row.cells.push_back(box(line + "2", BoxKind::Typed, BoxShape::Text, caption(1)));
        if (rate.isNull()) row.cells.push_back(box(line + "3", BoxKind::Typed, dueTyped ? BoxShape::Text : BoxShape::Rate, caption(2)));
        else row.cells.push_back(text(rate));
        row.cells.push_back(box(line + "4", figures, BoxShape::Amount, caption(3)));
        row.cells.push_back(box(line + "5", BoxKind::Typed, BoxShape::Amount, caption(4)));
        row.cells.push_back(box(line + "6", BoxKind::Computed, BoxShape::Amount, caption(5)));
        row.cells.push_back(box(line + "7", figures, BoxShape::Amount, caption(6)));
        row.cells.push_back(box(line + "8", dueTyped ? BoxKind::Typed : BoxKind::Computed, BoxShape::Amount, caption(7)));
        return row;
    }
    // A total row: its label over the first `labelSpan` columns, then computed figures `line`+digit.
    FormRow totalRow(const QString& label, int labelSpan, const QString& line, int firstDigit, int lastDigit,
                     const QString& caption) {
        FormRow row{FormRow::Total, line, {text(label, labelSpan)}};
        for (int d = firstDigit; d <= lastDigit; ++d)
            row.cells.push_back(box(line + QString::number(d), BoxKind::Computed, BoxShape::Amount, caption));
        return row;
    }
    static FormRow caption(const QString& t, int span) { return FormRow{FormRow::Caption, {}, {text(t, span)}}; }
    // A line with its words on the left and one figure on the right.
    FormRow figureLine(const QString& words, const QString& name, BoxKind kind, int wordsSpan = 1) {
        return FormRow{FormRow::Plain, name, {text(words, wordsSpan), box(name, kind, BoxShape::Amount, words)}};
    }
};

std::vector<FormBlock> heading(Builder& b) {
    FormBlock top{QStringLiteral("THE KERALA VALUE ADDED TAX RULES, 2005"), QStringLiteral("FORM No. 10"), {},
                  {34, 59, 34, 59}, false, false, {}};
    top.rows.push_back(FormRow{FormRow::Caption, {}, {Builder::text(QStringLiteral("RETURN [for Value Added Tax Dealer]   (See rule 22 (1))"), 4)}});
    top.rows.push_back(FormRow{FormRow::Plain, {}, {Builder::text(QStringLiteral("To\nThe Assessing Authority")),
                                                    b.box("hdAuthority", BoxKind::Typed, BoxShape::Text, QStringLiteral("The assessing authority")),
                                                    Builder::text(QStringLiteral("Date")),
                                                    b.box("hdDate", BoxKind::Typed, BoxShape::Date, QStringLiteral("The date of the return"))}});
    top.rows.push_back(FormRow{FormRow::Plain, {}, {Builder::text(QStringLiteral("Year")), b.box("hdYear", BoxKind::Fixed, BoxShape::Text, {}),
                                                    Builder::text(QStringLiteral("Sequence (Monthly / Quarterly / Annual)")),
                                                    b.box("hdSequence", BoxKind::Fixed, BoxShape::Text, {})}});
    top.rows.push_back(FormRow{FormRow::Plain, {}, {Builder::text(QStringLiteral("Return period: From")),
                                                    b.box("hdFrom", BoxKind::Fixed, BoxShape::Text, {}), Builder::text(QStringLiteral("To")),
                                                    b.box("hdTo", BoxKind::Fixed, BoxShape::Text, {})}});
    top.rows.push_back(FormRow{FormRow::Plain, {}, {Builder::text(QStringLiteral("Nature of return (Original / Fresh / Revised)")),
                                                    b.box("hdNature", BoxKind::Typed, BoxShape::Nature, QStringLiteral("The nature of the return")),
                                                    Builder::text({}, 2)}});

    FormBlock dealer{QStringLiteral("DEALER'S PARTICULARS"), {}, {}, {62, 124}, false, true, {}};
    const auto particular = [&](const char* words, const char* name, BoxKind kind) {
        dealer.rows.push_back(FormRow{FormRow::Plain, {}, {Builder::text(QString::fromUtf8(words)),
                                                           b.box(QString::fromLatin1(name), kind, BoxShape::Text, QString::fromUtf8(words))}});
    };
    particular("TIN", "dpTIN", BoxKind::Fixed);
    particular("CST No.", "dpCST", BoxKind::Fixed);
    particular("Name & address of the dealer", "dpName", BoxKind::Fixed);
    particular("a. Principal place of business", "dpPlace", BoxKind::Typed);
    particular("b. Branch(es)", "dpBranches", BoxKind::Typed);
    particular("Return furnished for the principal place of business or the branch at", "dpFurnishedAt", BoxKind::Typed);
    return {top, dealer};
}

std::vector<FormBlock> partA(Builder& b) {
    FormBlock local{QStringLiteral("Part A. TURNOVER DETAILS"), QStringLiteral("A (1) SALES / DISPOSAL (Local)"),
                    kSalesHeadings, kSalesWidths, true, true, {}};
    local.rows.push_back(Builder::caption(QStringLiteral("(1) Sales (Local)"), 8));
    for (const RateLine& r : kLocalSales)
        local.rows.push_back(b.salesLine(QString::fromLatin1(r.line), QStringLiteral("Sales (Local) at %1 %").arg(QLatin1String(r.rate)),
                                         QString::fromLatin1(r.rate), BoxKind::Store, false));
    local.rows.push_back(b.totalRow(QStringLiteral("Sub total (1)"), 3, QStringLiteral("SL5"), 4, 8, QStringLiteral("Sub total (1)")));
    local.rows.push_back(Builder::caption(QStringLiteral("(2) Transfer of right to use"), 8));
    local.rows.push_back(b.salesLine(QStringLiteral("TR1"), QStringLiteral("Transfer of right to use"), QString(), BoxKind::Typed, false));
    local.rows.push_back(b.totalRow(QStringLiteral("Sub total (2)"), 3, QStringLiteral("TR2"), 4, 8, QStringLiteral("Sub total (2)")));
    local.rows.push_back(Builder::caption(QStringLiteral("(3) Others (specify)"), 8));
    local.rows.push_back(b.salesLine(QStringLiteral("OT1"), QStringLiteral("Others"), QString(), BoxKind::Typed, false));
    local.rows.push_back(b.totalRow(QStringLiteral("Sub total (3)"), 3, QStringLiteral("OT2"), 4, 8, QStringLiteral("Sub total (3)")));
    local.rows.push_back(b.totalRow(QStringLiteral("Total A(1a) = [1 + 2 + 3]"), 3, QStringLiteral("A1T"), 4, 8, QStringLiteral("Total A(1a)")));

    FormBlock inter{{}, QStringLiteral("A (1) SALES / DISPOSAL (Inter-State)"), kSalesHeadings, kSalesWidths, true, true, {}};
    inter.rows.push_back(Builder::caption(QStringLiteral("1. Inter-State sales"), 8));
    inter.rows.push_back(b.salesLine(QStringLiteral("ISS1"), QStringLiteral("Inter-State sales"), QStringLiteral("CST"), BoxKind::Store, true));
    inter.rows.push_back(b.salesLine(QStringLiteral("ISS2"), QStringLiteral("Inter-State sales, second line"), QString(), BoxKind::Typed, true));
    inter.rows.push_back(b.totalRow(QStringLiteral("Sub total (1)"), 3, QStringLiteral("ISS3"), 4, 8, QStringLiteral("Sub total (1)")));
    inter.rows.push_back(Builder::caption(QStringLiteral("2. Export sales"), 8));
    inter.rows.push_back(b.salesLine(QStringLiteral("ES1"), QStringLiteral("Export sales"), QString(), BoxKind::Typed, true));
    inter.rows.push_back(b.totalRow(QStringLiteral("Sub total (2)"), 3, QStringLiteral("ES2"), 4, 8, QStringLiteral("Sub total (2)")));
    inter.rows.push_back(Builder::caption(QStringLiteral("3. Sale in the course of export"), 8));
    inter.rows.push_back(b.salesLine(QStringLiteral("SX1"), QStringLiteral("Sale in the course of export"), QString(), BoxKind::Typed, true));
    inter.rows.push_back(b.totalRow(QStringLiteral("Sub total (3)"), 3, QStringLiteral("SX2"), 4, 8, QStringLiteral("Sub total (3)")));
    inter.rows.push_back(b.totalRow(QStringLiteral("Total A(1b) = [1 + 2 + 3]"), 3, QStringLiteral("A2T"), 4, 8, QStringLiteral("Total A(1b)")));

    const QStringList medHeadings = {"Commodity", "Schedule entry / sub entry", "Rate of tax (%)", "Turnover: total (Rs.)",
                                     "Turnover: exempted (Rs.)", "Turnover: balance (Rs.)", "MRP value (Rs.)",
                                     "Tax collected on MRP (Rs.)", "Tax due on MRP (Rs.)"};
    FormBlock medicine{{}, QStringLiteral("A (3) TURNOVER OF MEDICINE OF DEALERS PAYING TAX ON MRP (not included in A (1))"),
                       medHeadings, {26, 16, 12, 23, 22, 22, 22, 21.5, 21.5}, true, true, {}};
    for (const char* line : {"MD1", "MD2"}) {
        const QString l = QString::fromLatin1(line);
        const QString label = QStringLiteral("Medicine, line %1").arg(l.right(1));
        FormRow row{FormRow::Plain, l, {}};
        row.cells.push_back(b.box(l + "1", BoxKind::Typed, BoxShape::Text, medHeadings[0] + ", " + label));
        row.cells.push_back(b.box(l + "2", BoxKind::Typed, BoxShape::Text, medHeadings[1] + ", " + label));
        row.cells.push_back(b.box(l + "3", BoxKind::Typed, BoxShape::Rate, medHeadings[2] + ", " + label));
        for (int d = 4; d <= 9; ++d)
            row.cells.push_back(b.box(l + QString::number(d), d == 6 ? BoxKind::Computed : BoxKind::Typed, BoxShape::Amount,
                                      medHeadings[d - 1] + ", " + label));
        medicine.rows.push_back(row);
    }
    medicine.rows.push_back(b.totalRow(QStringLiteral("Total A (3)"), 3, QStringLiteral("MD3"), 4, 9, QStringLiteral("Total A (3)")));
    return {local, inter, medicine};
}

std::vector<FormBlock> partsBtoE(Builder& b) {
    const QStringList reverseHeadings = {"Commodity / transaction", "Schedule entry", "Rate of tax (%)", "Purchase value (Rs.)",
                                         "Reverse tax (Rs.)"};
    FormBlock reverse{QStringLiteral("B. REVERSE TAX"), {}, reverseHeadings, {56, 30, 20, 40, 40}, false, true, {}};
    for (const char* line : {"RV1", "RV2"}) {
        const QString l = QString::fromLatin1(line);
        const QString label = QStringLiteral("Reverse tax, line %1").arg(l.right(1));
        FormRow row{FormRow::Plain, l, {}};
        row.cells.push_back(b.box(l + "1", BoxKind::Typed, BoxShape::Text, reverseHeadings[0] + ", " + label));
        row.cells.push_back(b.box(l + "2", BoxKind::Typed, BoxShape::Text, reverseHeadings[1] + ", " + label));
        row.cells.push_back(b.box(l + "3", BoxKind::Typed, BoxShape::Rate, reverseHeadings[2] + ", " + label));
        row.cells.push_back(b.box(l + "4", BoxKind::Typed, BoxShape::Amount, reverseHeadings[3] + ", " + label));
        row.cells.push_back(b.box(l + "5", BoxKind::Typed, BoxShape::Amount, reverseHeadings[4] + ", " + label));
        reverse.rows.push_back(row);
    }
    reverse.rows.push_back(b.totalRow(QStringLiteral("Total (B)"), 3, QStringLiteral("RV3"), 4, 5, QStringLiteral("Total (B)")));

    const QStringList purchaseHeadings = {"Rate of tax (%)", "Value, without VAT (Rs.)", "Input tax (Rs.)", "Value + tax (Rs.)",
                                          "Input tax credit claimed (Rs.)"};
    FormBlock purchases{QStringLiteral("C. PURCHASES"), {}, purchaseHeadings, {26, 40, 40, 40, 40}, true, true, {}};
    const auto purchaseLine = [&](const RateLine& r, const QString& kind, bool credit, bool derived) {
        const QString l = QString::fromLatin1(r.line);
        const QString label = kind + QStringLiteral(" at %1 %").arg(QLatin1String(r.rate));
        FormRow row{FormRow::Plain, l, {Builder::text(QString::fromLatin1(r.rate))}};
        // The 20 % line of inter-state purchases is what the page's total holds beyond its four lines.
        const BoxKind read = derived ? BoxKind::Computed : BoxKind::Store;
        row.cells.push_back(b.box(l + "4", read, BoxShape::Amount, purchaseHeadings[1] + ", " + label));
        row.cells.push_back(b.box(l + "5", read, BoxShape::Amount, purchaseHeadings[2] + ", " + label));
        row.cells.push_back(b.box(l + "6", BoxKind::Computed, BoxShape::Amount, purchaseHeadings[3] + ", " + label));
        if (credit) row.cells.push_back(b.box(l + "7", BoxKind::Store, BoxShape::Amount, purchaseHeadings[4] + ", " + label));
        else row.cells.push_back(Builder::text({}));
        return row;
    };
    purchases.rows.push_back(Builder::caption(QStringLiteral("(1) Local purchases"), 5));
    for (const RateLine& r : kLocalPurchases) purchases.rows.push_back(purchaseLine(r, QStringLiteral("Local purchases"), true, false));
    purchases.rows.push_back(b.totalRow(QStringLiteral("Sub total (1)"), 1, QStringLiteral("C1_5"), 4, 7, QStringLiteral("Sub total (1)")));
    purchases.rows.push_back(Builder::caption(QStringLiteral("(2) Inter-State purchases"), 5));
    for (const RateLine& r : kInterStatePurchases)
        purchases.rows.push_back(purchaseLine(r, QStringLiteral("Inter-State purchases"), false, QLatin1String(r.line) == QLatin1String("C2_6")));
    FormRow interTotal = b.totalRow(QStringLiteral("Sub total (2)"), 1, QStringLiteral("C2_3"), 4, 6, QStringLiteral("Sub total (2)"));
    interTotal.cells.push_back(Builder::text({}));
    purchases.rows.push_back(interTotal);
    purchases.rows.push_back(Builder::caption(QStringLiteral("(3) Import"), 5));
    purchases.rows.push_back(FormRow{FormRow::Plain, QStringLiteral("IM1"),
                                     {Builder::text({}), b.box("IM14", BoxKind::Typed, BoxShape::Amount, purchaseHeadings[1] + ", Import"),
                                      b.box("IM15", BoxKind::Typed, BoxShape::Amount, purchaseHeadings[2] + ", Import"),
                                      b.box("IM16", BoxKind::Computed, BoxShape::Amount, purchaseHeadings[3] + ", Import"),
                                      Builder::text({})}});
    purchases.rows.push_back(b.totalRow(QStringLiteral("Total (C)"), 1, QStringLiteral("CT"), 4, 7, QStringLiteral("Total (C)")));

    FormBlock credits{{}, {}, {}, {146, 40}, false, true, {}};
    credits.rows.push_back(b.figureLine(QStringLiteral("D. Special rebate (Rs.)"), QStringLiteral("D"), BoxKind::Typed));
    credits.rows.push_back(b.figureLine(QStringLiteral("E. Input tax credit on capital goods (Rs.)"), QStringLiteral("E"), BoxKind::Typed));
    return {reverse, purchases, credits};
}

std::vector<FormBlock> payable(Builder& b) {
    FormBlock tax{QStringLiteral("TAX PAYABLE"), {}, {}, {146, 40}, false, true, {}};
    const struct { const char* words; const char* name; BoxKind kind; } lines[] = {
        {"(F) Input tax credit = [C (5) + D + E]", "F", BoxKind::Computed},
        {"(G) Output tax = [A (1a) (8) + B]", "G", BoxKind::Computed},
        {"(H) Net tax = (G - F)", "H", BoxKind::Computed},
        {"(I) Tax deferred", "I", BoxKind::Typed},
        {"(J) Net tax payable = (H - I)", "J", BoxKind::Computed},
        {"(K) Net tax creditable = (F - G)", "K", BoxKind::Computed},
        {"(L) Amount adjusted towards arrears for previous return periods", "L", BoxKind::Typed},
        {"(M) Amount adjusted towards CST for the current month", "M", BoxKind::Typed},
        {"(N) Balance tax at credit carried forward to the next return period = [K - (L + M)]", "N", BoxKind::Computed},
        {"(O) Compounded tax payable for medicine", "O", BoxKind::Typed},
    };
    for (const auto& l : lines) tax.rows.push_back(b.figureLine(QString::fromUtf8(l.words), QString::fromLatin1(l.name), l.kind));

    const QStringList paymentHeadings = {"Challan / DD / cheque / e-payment", "Number", "Date", "Bank / treasury", "Amount (Rs.)"};
    FormBlock payment{QStringLiteral("PAYMENT DETAILS"), {}, paymentHeadings, {40, 30, 26, 50, 40}, false, true, {}};
    for (const char* line : {"PY1", "PY2"}) {
        const QString l = QString::fromLatin1(line);
        const QString label = QStringLiteral("Payment, line %1").arg(l.right(1));
        FormRow row{FormRow::Plain, l, {}};
        for (int d = 1; d <= 5; ++d)
            row.cells.push_back(b.box(l + QString::number(d), BoxKind::Typed,
                                      d == 3 ? BoxShape::Date : d == 5 ? BoxShape::Amount : BoxShape::Text,
                                      paymentHeadings[d - 1] + ", " + label));
        payment.rows.push_back(row);
    }
    FormRow paid{FormRow::Total, QStringLiteral("PYT"), {Builder::text(QStringLiteral("Total"), 4)}};
    paid.cells.push_back(b.box("PYT5", BoxKind::Computed, BoxShape::Amount, QStringLiteral("Total paid")));
    payment.rows.push_back(paid);
    return {tax, payment};
}

std::vector<FormBlock> closing(Builder& b) {
    FormBlock enclosures{QStringLiteral("ENCLOSURES ATTACHED"), {}, {QStringLiteral("Statement"), QStringLiteral("Y or N")},
                         {166, 20}, false, true, {}};
    const char* const statements[] = {
        "(1) Statement of local sales to VAT dealers: invoice No. and date, goods, value, the buyer with his TIN",
        "(2) Statement of inter-State sales, in the form that rule 46 (2) (i) gives",
        "(3) Statement of inter-State stock transfers: invoice No. and date, goods, value, the consignee with his TIN",
        "(4) Statement of export sales, in full",
        "(5) Statement of local purchases: invoice No. and date, goods, value, the seller with his TIN",
        "(6) Statement of inter-State purchases: invoice No. and date, goods, value, the seller with his TIN",
        "(7) Statement of local purchases from persons other than registered dealers",
        "(8) Statement of import purchases, in full",
        "(9) Statement of local, inter-State and import purchases of capital goods, in full",
        "(10) Statement of credit and debit notes",
        "(11) Proof of payment of the tax shown in this return",
    };
    for (int n = 1; n <= 11; ++n) {
        const QString words = QString::fromUtf8(statements[n - 1]);
        enclosures.rows.push_back(FormRow{FormRow::Plain, {}, {Builder::text(words),
                                                               b.box(QStringLiteral("EN%1").arg(n), BoxKind::Typed, BoxShape::YesNo,
                                                                     QStringLiteral("Enclosure (%1)").arg(n))}});
    }

    FormBlock declaration{QStringLiteral("DECLARATION"), {}, {}, {26, 67, 26, 67}, false, true, {}};
    declaration.rows.push_back(FormRow{FormRow::Caption, {}, {Builder::text(QStringLiteral(
        "I declare that to the best of my knowledge and belief the particulars furnished in this return are true, "
        "correct and complete, and that nothing has been kept back."), 4)}});
    declaration.rows.push_back(FormRow{FormRow::Plain, {}, {Builder::text(QStringLiteral("Place")),
                                                            b.box("dcPlace", BoxKind::Typed, BoxShape::Text, QStringLiteral("The place of signing")),
                                                            Builder::text(QStringLiteral("Date")),
                                                            b.box("dcDate", BoxKind::Typed, BoxShape::Date, QStringLiteral("The date of signing"))}});
    declaration.rows.push_back(FormRow{FormRow::Plain, {}, {Builder::text(QStringLiteral("Name")),
                                                            b.box("dcName", BoxKind::Typed, BoxShape::Text, QStringLiteral("The name of the signatory")),
                                                            Builder::text(QStringLiteral("Status")),
                                                            b.box("dcStatus", BoxKind::Typed, BoxShape::Text, QStringLiteral("The signatory's status"))}});
    declaration.rows.push_back(FormRow{FormRow::Plain, {}, {Builder::text(QStringLiteral("Signature")), Builder::text({}, 3)}});
    return {enclosures, declaration};
}

struct Form {
    std::vector<FormBlock> blocks;
    std::vector<FormBox> boxes;
    QHash<QString, int> index;
};

const Form& form() {
    static const Form f = [] {
        Builder b;
        for (auto part : {heading, partA, partsBtoE, payable, closing})
            for (FormBlock& block : part(b)) b.blocks.push_back(std::move(block));
        Form out{std::move(b.blocks), std::move(b.boxes), {}};
        for (int i = 0; i < int(out.boxes.size()); ++i) out.index.insert(out.boxes[size_t(i)].name, i);
        return out;
    }();
    return f;
}

double paise(double v) { return std::round(v * 100.0 + (v < 0 ? -1e-7 : 1e-7)) / 100.0; }

}  // namespace

const std::vector<FormBlock>& FormTenBlocks() { return form().blocks; }
const std::vector<FormBox>& FormTenBoxes() { return form().boxes; }

const FormBox* FormTenBox(const QString& name) {
    const auto it = form().index.constFind(name);
    return it == form().index.constEnd() ? nullptr : &form().boxes[size_t(*it)];
}

double BoxFigure(const FormTenValues& v, const QString& box) {
    const FormBox* b = FormTenBox(box);
    if (b && b->kind == BoxKind::Typed) return basic::ParseIndianAmount(v.typed.value(box)).value_or(0.0);
    return v.figures.value(box, 0.0);
}

void ComputeFormTen(FormTenValues& v) {
    const auto f = [&](const QString& box) { return BoxFigure(v, box); };
    const auto set = [&](const QString& box, double value) { v.figures.insert(box, paise(value)); };
    const auto digit = [](const QString& line, int d) { return line + QString::number(d); };

    // Lines of sales: taxable = total - exemption; at a known rate the tax due is the taxable at it.
    const auto salesLine = [&](const QString& line, std::optional<double> rate) {
        set(digit(line, 6), f(digit(line, 4)) - f(digit(line, 5)));
        if (rate) set(digit(line, 8), f(digit(line, 6)) * *rate / 100.0);
    };
    for (const RateLine& r : kLocalSales) salesLine(QString::fromLatin1(r.line), QString::fromLatin1(r.rate).toDouble());
    for (const char* line : {"TR1", "OT1"}) salesLine(QString::fromLatin1(line), f(QString::fromLatin1(line) + "3"));
    for (const char* line : {"ISS1", "ISS2", "ES1", "SX1"}) salesLine(QString::fromLatin1(line), std::nullopt);
    const auto sum = [&](const QString& total, const QStringList& lines, int first, int last) {
        for (int d = first; d <= last; ++d) {
            double s = 0;
            for (const QString& l : lines) s += f(digit(l, d));
            set(digit(total, d), s);
        }
    };
    sum("SL5", {"SL1", "SL2", "SL3", "SL4", "SL6"}, 4, 8);
    sum("TR2", {"TR1"}, 4, 8);
    sum("OT2", {"OT1"}, 4, 8);
    sum("A1T", {"SL5", "TR2", "OT2"}, 4, 8);
    sum("ISS3", {"ISS1", "ISS2"}, 4, 8);
    sum("ES2", {"ES1"}, 4, 8);
    sum("SX2", {"SX1"}, 4, 8);
    sum("A2T", {"ISS3", "ES2", "SX2"}, 4, 8);

    for (const char* line : {"MD1", "MD2"}) set(QString::fromLatin1(line) + "6", f(QString::fromLatin1(line) + "4") - f(QString::fromLatin1(line) + "5"));
    sum("MD3", {"MD1", "MD2"}, 4, 9);
    sum("RV3", {"RV1", "RV2"}, 4, 5);

    QStringList local, inter;
    for (const RateLine& r : kLocalPurchases) local << QString::fromLatin1(r.line);
    for (const RateLine& r : kInterStatePurchases) inter << QString::fromLatin1(r.line);
    for (const QString& l : local + inter) set(digit(l, 6), f(digit(l, 4)) + f(digit(l, 5)));
    set("IM16", f("IM14") + f("IM15"));
    sum("C1_5", local, 4, 7);
    sum("C2_3", inter, 4, 6);
    set("CT4", f("C1_54") + f("C2_34") + f("IM14"));
    set("CT5", f("C1_55") + f("C2_35") + f("IM15"));
    set("CT6", f("CT4") + f("CT5"));
    set("CT7", f("C1_57"));

    set("F", f("CT7") + f("D") + f("E"));
    set("G", f("A1T8") + f("RV35"));
    set("H", std::max(0.0, f("G") - f("F")));
    set("J", f("H") - f("I"));
    set("K", std::max(0.0, f("F") - f("G")));
    set("N", f("K") - (f("L") + f("M")));
    set("PYT5", f("PY15") + f("PY25"));
}

QString BoxText(const FormTenValues& v, const QString& box) {
    const FormBox* b = FormTenBox(box);
    if (!b) return {};
    switch (b->kind) {
    case BoxKind::Fixed:
        return v.fixed.value(box);
    case BoxKind::Store:
    case BoxKind::Computed: {
        const double figure = v.figures.value(box, 0.0);
        return figure == 0.0 ? QStringLiteral("Nil") : basic::IndianAmount(figure);
    }
    case BoxKind::Typed:
        break;
    }
    const QString typed = v.typed.value(box).trimmed();
    if (b->shape == BoxShape::Amount) {
        if (const auto amount = basic::ParseIndianAmount(typed)) return basic::IndianAmount(*amount);
    } else if (b->shape == BoxShape::YesNo) {
        return typed.toUpper();
    }
    return typed;
}

namespace {

bool isFormDate(const QString& text) {
    return QDate::fromString(text.trimmed(), QStringLiteral("dd-MM-yyyy")).isValid();
}

}  // namespace

std::optional<TypedFault> CheckTyped(const FormTenValues& v) {
    for (const FormBox& b : FormTenBoxes()) {
        if (b.kind != BoxKind::Typed) continue;
        const QString t = v.typed.value(b.name).trimmed();
        if (t.isEmpty()) continue;
        switch (b.shape) {
        case BoxShape::Amount:
            if (!basic::ParseIndianAmount(t))
                return TypedFault{b.name, b.caption + QStringLiteral(" takes an amount in rupees, such as 1,25,000.00 or 125000.50: \"") + t +
                                              QStringLiteral("\" is not one.")};
            break;
        case BoxShape::Rate:
            if (!basic::ParseIndianAmount(t) || *basic::ParseIndianAmount(t) > 100)
                return TypedFault{b.name, b.caption + QStringLiteral(" takes a rate in per cent, such as 4 or 12.5: \"") + t +
                                              QStringLiteral("\" is not one.")};
            break;
        case BoxShape::YesNo:
            if (t.compare(QLatin1String("Y"), Qt::CaseInsensitive) != 0 && t.compare(QLatin1String("N"), Qt::CaseInsensitive) != 0)
                return TypedFault{b.name, b.caption + QStringLiteral(" takes Y or N.")};
            break;
        case BoxShape::Date:
            if (!isFormDate(t))
                return TypedFault{b.name, b.caption + QStringLiteral(" takes a date as dd-mm-yyyy, such as 15-04-2026: \"") + t +
                                              QStringLiteral("\" is not one.")};
            break;
        case BoxShape::Nature:
            if (!QStringList{"Original", "Fresh", "Revised"}.contains(t, Qt::CaseInsensitive))
                return TypedFault{b.name, b.caption + QStringLiteral(" is Original, Fresh or Revised.")};
            break;
        case BoxShape::Text:
            break;
        }
    }
    // Lines that cannot stand as typed: more exempted than turned over, more taken off than there is.
    for (const char* line : {"SL1", "SL2", "SL3", "SL4", "SL6", "TR1", "OT1", "ISS1", "ISS2", "ES1", "SX1", "MD1", "MD2"}) {
        const QString l = QString::fromLatin1(line);
        if (paise(BoxFigure(v, l + "5")) > paise(BoxFigure(v, l + "4")))
            return TypedFault{l + "5", FormTenBox(l + "5")->caption + QStringLiteral(" is more than the total turnover of the line (") +
                                           basic::IndianAmount(BoxFigure(v, l + "4")) + QStringLiteral(").")};
    }
    FormTenValues worked = v;
    ComputeFormTen(worked);
    if (paise(BoxFigure(worked, "I")) > paise(BoxFigure(worked, "H")))
        return TypedFault{QStringLiteral("I"), QStringLiteral("The tax deferred (I) cannot be more than the net tax (H), ") +
                                                   basic::IndianAmount(BoxFigure(worked, "H")) + QStringLiteral(".")};
    if (paise(BoxFigure(worked, "L") + BoxFigure(worked, "M")) > paise(BoxFigure(worked, "K")))
        return TypedFault{BoxFigure(worked, "L") > 0 ? QStringLiteral("L") : QStringLiteral("M"),
                          QStringLiteral("The amounts adjusted (L + M) cannot be more than the net tax creditable (K), ") +
                              basic::IndianAmount(BoxFigure(worked, "K")) + QStringLiteral(".")};
    return std::nullopt;
}

QString KeptText(const FormBox& box, const QString& typed) {
    const QString t = typed.trimmed();
    if (box.shape == BoxShape::Amount || box.shape == BoxShape::Rate) {
        if (const auto amount = basic::ParseIndianAmount(t)) return QString::number(*amount, 'f', 2);
    } else if (box.shape == BoxShape::YesNo) {
        return t.toUpper();
    } else if (box.shape == BoxShape::Nature && !t.isEmpty()) {
        return t.left(1).toUpper() + t.mid(1).toLower();
    }
    return t;
}

}  // namespace returns
