#include "platform/documents/light_on_dark.h"

#include "platform/documents/document_view.h"
#include "platform/basic/settings.h"
#include "platform/forms/colour_scheme.h"

#include <QAction>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPalette>
#include <QPdfView>
#include <QTextBrowser>

namespace documents {

namespace {
const QString kKey = QStringLiteral("reader/lightOnDark");
// Paper white becomes this dark grey and ink this light one: softer than black and white at night.
const QColor kInversion(224, 224, 224);
}  // namespace

LightOnDark& LightOnDark::shared() {
    static LightOnDark* one = new LightOnDark;
    return *one;
}

LightOnDark::LightOnDark() { on_ = basic::Settings().value(kKey, forms::DesktopIsDark()).toBool(); }

void LightOnDark::setOn(bool on) {
    if (on == on_) return;
    on_ = on;
    basic::Settings().setValue(kKey, on_);
    emit changed(on_);
}

InvertingLayer::InvertingLayer(QAbstractScrollArea* area) : QWidget(area), area_(area) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    // A sibling of the viewport, not its child: a scrolled viewport moves its children with its pixels.
    area->viewport()->installEventFilter(this);
    setGeometry(area->viewport()->geometry());
    hide();
}

void InvertingLayer::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Difference);
    painter.fillRect(event->rect(), kInversion);
}

bool InvertingLayer::eventFilter(QObject* watched, QEvent* event) {
    // A viewport laid out while it is being shown gets no resize event of its own: its showing is watched too.
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move || event->type() == QEvent::Show) {
        setGeometry(area_->viewport()->geometry());
        raise();
    }
    return QWidget::eventFilter(watched, event);
}

ViewDarkness* ViewDarkness::attach(DocumentView* view) { return new ViewDarkness(view); }

ViewDarkness::ViewDarkness(DocumentView* view)
    : QObject(view),
      toggle(new QAction(QStringLiteral("Light on dark"), view)),
      overText_(new InvertingLayer(view->textBrowser())),
      overPdf_(new InvertingLayer(view->pdfView())) {
    // The paper on the viewport alone: the scroll bars keep the window's colours.
    QPalette paper, ink;  // no role of their own but the one set
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        paper.setColor(group, QPalette::Base, Qt::white);
        ink.setColor(group, QPalette::Text, Qt::black);
    }
    view->textBrowser()->setPalette(ink);
    view->textBrowser()->viewport()->setPalette(paper);
    toggle->setCheckable(true);
    toggle->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L));
    toggle->setShortcutContext(Qt::WindowShortcut);
    view->addAction(toggle);
    connect(toggle, &QAction::triggered, &LightOnDark::shared(), &LightOnDark::setOn);
    connect(&LightOnDark::shared(), &LightOnDark::changed, this, &ViewDarkness::apply);
    apply(LightOnDark::shared().on());
}

void ViewDarkness::apply(bool on) {
    toggle->setChecked(on);
    for (InvertingLayer* layer : {overText_, overPdf_}) {
        layer->setVisible(on);
        layer->raise();
    }
}

}  // namespace documents
