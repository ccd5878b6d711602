#include "library/law_toolbar.h"

#include "platform/forms/image_list.h"
#include "platform/forms/toolbar.h"

#include <QStyle>

namespace library {

namespace {

struct ButtonRow {
    const char* caption;
    const char* key;
    const char* toolTip;  // nullptr: none
    QStyle::StandardPixmap picture;
    bool payment;
};

const ButtonRow kButtons[] = {
    {"Act", "Act", "Act", QStyle::SP_FileDialogContentsView, false},
    {"Rules", "rul", "Rules", QStyle::SP_FileDialogDetailedView, false},
    {"Cash Payment", "CP", nullptr, QStyle::SP_DialogYesButton, true},
    {"Bank Payment", "BP", nullptr, QStyle::SP_DriveHDIcon, true},
    {"Circulars", "circu", "Circulars", QStyle::SP_FileIcon, false},
    {"Notification", "not", "Notification", QStyle::SP_MessageBoxInformation, false},
    {"Schedules", "sch", "Schedules", QStyle::SP_FileDialogListView, false},
    {"Judgements", "jud", "Judgements", QStyle::SP_DialogApplyButton, false},
    {"Forms", "forms", "Word Forms", QStyle::SP_FileDialogNewFolder, false},
    {"Allied", "Ali", "Allied Act,Forms,Rules", QStyle::SP_DirLinkIcon, false},
    {"R.Judgement", "rec", "Recent Judgements", QStyle::SP_BrowserReload, false},
    {"CA", "ca", "Tools for Chartered Accountants", QStyle::SP_ComputerIcon, false},
    {"Back", "bac", "Back to Main Menu", QStyle::SP_ArrowBack, false},
};

}  // namespace

void fillLawToolbar(forms::Toolbar* bar, forms::ImageList& images, const QStyle* style, PaymentButtons payments) {
    int image = 0;
    for (const ButtonRow& row : kButtons) {
        if (row.payment && payments == PaymentButtons::InRulesMenu) {
            bar->Buttons(QStringLiteral("rul")).ButtonMenus().Add(QString::fromUtf8(row.key), QString::fromUtf8(row.caption));
            continue;
        }
        images.Add(style->standardIcon(row.picture));
        auto b = bar->Buttons.Add(QString::fromUtf8(row.key), QString::fromUtf8(row.caption), ++image);
        b.setToolTipText(row.toolTip ? QString::fromUtf8(row.toolTip) : QString());
    }
}

}  // namespace library
