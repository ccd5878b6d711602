// The one way a button of the return window does its store work. What the user sees is kept first;
// the questions are asked before the file is touched for writing; the work runs in one transaction;
// a failure rolls it back, puts back what the screen showed (totals recounted) and says in one box,
// worded by the kind of fault, what was not done and at which step.
#include "platform/basic/app_path.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/runtime_errors.h"
#include "returns/frm_normal.h"
#include "returns/log.h"
#include "returns/module2.h"
#include "returns/store_work.h"

#include <utility>
#include <vector>

namespace returns {

namespace {

std::vector<QStringList> cellsOf(const forms::FlexGrid* grid) {
    std::vector<QStringList> rows;
    for (int r = 0; r < grid->Rows(); ++r) {
        QStringList cells;
        for (int c = 0; c < grid->Cols(); ++c) cells << grid->TextMatrix(r, c);
        rows.push_back(cells);
    }
    return rows;
}

void putBack(forms::FlexGrid* grid, const std::vector<QStringList>& rows) {
    grid->setRows(int(rows.size()));
    for (int r = 0; r < int(rows.size()); ++r)
        for (int c = 0; c < rows[r].size(); ++c) grid->setTextMatrix(r, c, rows[r][c]);
}

}  // namespace

bool frmNormal::runStoreWork(const StoreWords& words, const std::function<bool()>& ask, const std::function<void()>& work) {
    const std::vector<QStringList> fg1Seen = cellsOf(fg1), fg2Seen = cellsOf(fg2);
    const QString dateSeen = txtDate->text(), placeSeen = txtPlace->text();
    storeStep_ = QStringLiteral("reading the month");
    bool asked = true, began = false;
    // The work makes its connections anew; this one holds the file's handle, and so the transaction,
    // from the first statement to the last.
    store::Connection transaction = store::Connection::nothing();
    const basic::RuntimeError failure = basic::resume([&] {
        if (ask) asked = ask();
        if (!asked) return;
        storeStep_ = QStringLiteral("opening the return file");
        ConnectReturnStore();
        transaction = cnReturn;
        transaction.BeginTrans();
        began = storeWorking_ = true;
        work();
        storeStep_ = QStringLiteral("writing the month to the disk");
        transaction.CommitTrans();
    });
    if (failure.number() != 0 && began) ignore([&] { transaction.RollbackTrans(); });
    storeWorking_ = false;
    for (const auto& box : std::exchange(afterStoreWork_, {})) box();
    if (failure.number() == 0) return asked;

    putBack(fg1, fg1Seen);
    putBack(fg2, fg2Seen);
    txtDate->setText(dateSeen);
    txtPlace->setText(placeSeen);
    procTotalCal1();
    procTotalCal2();
    qCWarning(lcReturns).noquote() << words.title << "while" << storeStep_ << ":" << failure.description();
    if (words.refusalIsRuntimeError && faultOf(failure) == StoreFault::Refused) forms::reportRuntimeError(failure);
    else forms::MsgBox(failureText(words, failure, storeStep_, basic::CurDir() + QStringLiteral("/nwForm10DB.mdb")),
                       forms::vbExclamation, words.title);
    return false;
}

void frmNormal::afterStoreWork(std::function<void()> box) {
    if (storeWorking_) afterStoreWork_.push_back(std::move(box));
    else box();
}

// A step of the work that passes over its own failures: one that cost the transaction is the failure
// of this step, so the step ends with a check.
void frmNormal::storeStep(const QString& step, const std::function<void()>& work) {
    storeStep_ = step;
    work();
    cnReturn.ConfirmTrans();
}

}  // namespace returns
