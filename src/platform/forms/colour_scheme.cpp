#include "platform/forms/colour_scheme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStyle>
#include <QWidget>

namespace forms {

namespace {

const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPortalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kSettings = QStringLiteral("org.freedesktop.portal.Settings");
const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kColourScheme = QStringLiteral("color-scheme");

// The portal's value: 1 prefers dark, 2 prefers light, 0 has no preference.
DesktopScheme schemeOf(QVariant value) {
    while (value.canConvert<QDBusVariant>() && value.userType() == qMetaTypeId<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    bool number = false;
    const uint preference = value.toUInt(&number);
    if (!number) return DesktopScheme::Unknown;
    return preference == 1 ? DesktopScheme::Dark : preference == 2 ? DesktopScheme::Light : DesktopScheme::Unknown;
}

bool darkWanted = false;

// The palette a widget gets from its parent, or the program's for a window.
QPalette inheritedPalette(const QWidget* w) {
    return w->parentWidget() && !w->isWindow() ? w->parentWidget()->palette() : QApplication::palette();
}

// The design fixes a light ground by a colour of the widget's own palette or by its style sheet.
bool fixesLightGround(const QWidget* w) {
    if (w->testAttribute(Qt::WA_SetPalette)) {
        const QPalette own = w->palette(), inherited = inheritedPalette(w);
        for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base, QPalette::Button})
            if (own.color(ground) != inherited.color(ground) && own.color(ground).lightness() > 128) return true;
    }
    static const QRegularExpression background(QStringLiteral(R"(background(?:-color)?\s*:\s*([#\w]+))"));
    for (auto m = background.globalMatch(w->styleSheet()); m.hasNext();) {
        const QColor colour = QColor::fromString(m.next().captured(1));
        if (colour.isValid() && colour.lightness() > 128) return true;
    }
    return false;
}

// A window whose design fixes a light ground anywhere is left in Qt's light palette as a whole: light text
// on a ground designed light would not be read. Controls under a style sheet take the program's palette,
// so the program's stays light and each other window is darkened on its own.
bool designedLight(const QWidget* window) {
    if (fixesLightGround(window)) return true;
    for (const QWidget* w : window->findChildren<QWidget*>())
        if (!w->isWindow() && fixesLightGround(w)) return true;
    return false;
}

const char* const kDarkened = "vorlanDarkened";

void follow(QWidget* window) {
    const bool darkened = window->property(kDarkened).toBool();
    if (darkWanted && !darkened && !designedLight(window)) {
        window->setPalette(darkPalette());
        window->setProperty(kDarkened, true);
    } else if (!darkWanted && darkened) {
        window->setPalette(QPalette());
        window->setProperty(kDarkened, false);
    }
}

class WindowsFollow : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (darkWanted && event->type() == QEvent::Polish && watched->isWidgetType() &&
            static_cast<QWidget*>(watched)->isWindow())
            follow(static_cast<QWidget*>(watched));
        return false;
    }
};

void apply(DesktopScheme portal) {
    const bool dark = wantsDarkPalette(isDark(QApplication::palette()), portal, qEnvironmentVariable("GTK_THEME"));
    // A palette Qt made dark is the program's already.
    if (isDark(QApplication::palette()) || dark == darkWanted) return;
    darkWanted = dark;
    static const bool watching = [] {
        qApp->installEventFilter(new WindowsFollow);
        return true;
    }();
    Q_UNUSED(watching);
    for (QWidget* window : QApplication::topLevelWidgets()) follow(window);
}

class PortalWatch : public QObject {
    Q_OBJECT
public slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
        if (group == kAppearance && key == kColourScheme) apply(schemeOf(value.variant()));
    }
};

bool sessionBusKnown() {
    // Without an address libdbus may start a bus of its own on X11: a cost the start must not pay.
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

}  // namespace

bool wantsDarkPalette(bool paletteIsDark, DesktopScheme portal, const QString& gtkTheme) {
    if (paletteIsDark) return true;
    if (portal != DesktopScheme::Unknown) return portal == DesktopScheme::Dark;
    // "Adwaita:dark", "Adwaita-dark", "Yaru-dark": the variant follows the name.
    return gtkTheme.endsWith(QLatin1String(":dark"), Qt::CaseInsensitive) ||
           gtkTheme.endsWith(QLatin1String("-dark"), Qt::CaseInsensitive);
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QPalette darkPalette() {
    QPalette p;
    const QColor window(0x2d, 0x2d, 0x30), base(0x1e, 0x1e, 0x1e), text(0xe6, 0xe6, 0xe6), button(0x3a, 0x3a, 0x3d);
    p.setColor(QPalette::Window, window);
    p.setColor(QPalette::WindowText, text);
    p.setColor(QPalette::Base, base);
    p.setColor(QPalette::AlternateBase, QColor(0x26, 0x26, 0x28));
    p.setColor(QPalette::ToolTipBase, QColor(0x3f, 0x3f, 0x46));
    p.setColor(QPalette::ToolTipText, text);
    p.setColor(QPalette::PlaceholderText, QColor(0x9a, 0x9a, 0x9a));
    p.setColor(QPalette::Text, text);
    p.setColor(QPalette::Button, button);
    p.setColor(QPalette::ButtonText, text);
    p.setColor(QPalette::BrightText, QColor(0xff, 0x6b, 0x6b));
    p.setColor(QPalette::Light, QColor(0x50, 0x50, 0x54));
    p.setColor(QPalette::Midlight, QColor(0x44, 0x44, 0x48));
    p.setColor(QPalette::Mid, QColor(0x30, 0x30, 0x33));
    p.setColor(QPalette::Dark, QColor(0x1a, 0x1a, 0x1c));
    p.setColor(QPalette::Shadow, Qt::black);
    p.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb3));
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, QColor(0x7a, 0xb7, 0xff));
    p.setColor(QPalette::LinkVisited, QColor(0xc0, 0x9a, 0xff));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    return p;
}

bool DesktopIsDark() { return darkWanted || isDark(QApplication::palette()); }

void FollowDesktopScheme() {
    apply(DesktopScheme::Unknown);
    if (!sessionBusKnown()) return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    static PortalWatch* watch = new PortalWatch;
    bus.connect(kPortal, kPortalPath, kSettings, QStringLiteral("SettingChanged"), watch,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage read = QDBusMessage::createMethodCall(kPortal, kPortalPath, kSettings, QStringLiteral("Read"));
    read << kAppearance << kColourScheme;
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(read, 2000), watch);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, watch, [](QDBusPendingCallWatcher* call) {
        const QDBusPendingReply<QVariant> reply = *call;
        if (!reply.isError()) apply(schemeOf(reply.value()));
        call->deleteLater();
    });
}

}  // namespace forms

#include "colour_scheme.moc"
