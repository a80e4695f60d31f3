#include "platform/wayland/SwayWindowSystem.h"

#include "platform/WindowTitleMatch.h"

#include <QJsonArray>
#include <QRect>
#include <algorithm>

namespace mervak {

namespace {

WindowId idOf(const QJsonObject& node) {
    return static_cast<WindowId>(node.value(u"id").toInteger());
}

bool isView(const QJsonObject& node) {
    return node.contains(u"pid") && node.value(u"nodes").toArray().isEmpty() &&
           node.value(u"floating_nodes").toArray().isEmpty();
}

// The windows under `node`, those focused least recently first: sway lists each
// container's children in its "focus" array, the most recent first.
void collectViews(const QJsonObject& node, QList<QJsonObject>& into) {
    if (isView(node)) {
        into.append(node);
        return;
    }
    QList<QJsonObject> children;
    for (const char16_t* key : {u"nodes", u"floating_nodes"})
        for (const QJsonValue& child : node.value(key).toArray())
            children.append(child.toObject());
    const QJsonArray focus = node.value(u"focus").toArray();
    const auto rank = [&focus](const QJsonObject& child) {
        const auto found = std::find(focus.begin(), focus.end(), QJsonValue(child.value(u"id")));
        return found == focus.end() ? -1 : static_cast<int>(focus.end() - found);
    };
    std::stable_sort(children.begin(), children.end(),
                     [&](const QJsonObject& a, const QJsonObject& b) { return rank(a) > rank(b); });
    for (const QJsonObject& child : children)
        collectViews(child, into);
}

} // namespace

SwayWindowSystem::SwayWindowSystem(const QString& socketPath) : ipc_(socketPath) {}

QList<QJsonObject> SwayWindowSystem::views() {
    QList<QJsonObject> found;
    if (const std::optional<QJsonDocument> tree = ipc_.ask(SwayIpc::Request::GetTree))
        collectViews(tree->object(), found);
    return found;
}

std::optional<QJsonObject> SwayWindowSystem::view(WindowId window) {
    for (const QJsonObject& node : views())
        if (idOf(node) == window)
            return node;
    return std::nullopt;
}

QList<WindowInfo> SwayWindowSystem::topLevelWindows() {
    QList<WindowInfo> windows;
    for (const QJsonObject& node : views()) {
        const QString title = node.value(u"name").toString();
        if (!title.isEmpty())
            windows.append({idOf(node), title});
    }
    return windows;
}

WindowId SwayWindowSystem::findByTitle(const QString& title) {
    return findWindowByTitle(topLevelWindows(), title);
}

bool SwayWindowSystem::command(WindowId window, const QString& command) {
    const QString line = QStringLiteral("[con_id=%1] %2").arg(window).arg(command);
    const std::optional<QJsonDocument> answer =
        ipc_.ask(SwayIpc::Request::RunCommand, line.toUtf8());
    if (!answer)
        return false;
    const QJsonArray results = answer->array();
    return !results.isEmpty() &&
           std::all_of(results.begin(), results.end(),
                       [](const QJsonValue& r) { return r.toObject().value(u"success").toBool(); });
}

bool SwayWindowSystem::activate(WindowId window) {
    if (window == kNoWindow)
        return false;
    return activeWindow() == window || command(window, QStringLiteral("focus"));
}

WindowId SwayWindowSystem::activeWindow() {
    for (const QJsonObject& node : views())
        if (node.value(u"focused").toBool())
            return idOf(node);
    return kNoWindow;
}

QString SwayWindowSystem::title(WindowId window) {
    const std::optional<QJsonObject> node = view(window);
    return node ? node->value(u"name").toString() : QString();
}

std::optional<WindowRect> SwayWindowSystem::rect(WindowId window) {
    const std::optional<QJsonObject> node = view(window);
    if (!node)
        return std::nullopt;
    const QJsonObject r = node->value(u"rect").toObject();
    const int x = r.value(u"x").toInt();
    const int y = r.value(u"y").toInt();
    return WindowRect{x, y, x + r.value(u"width").toInt(), y + r.value(u"height").toInt()};
}

QSize SwayWindowSystem::screenSize() {
    const std::optional<QJsonDocument> outputs = ipc_.ask(SwayIpc::Request::GetOutputs);
    QRect all;
    if (outputs)
        for (const QJsonValue& output : outputs->array()) {
            const QJsonObject r = output.toObject().value(u"rect").toObject();
            if (output.toObject().value(u"active").toBool())
                all |= QRect(r.value(u"x").toInt(), r.value(u"y").toInt(),
                             r.value(u"width").toInt(), r.value(u"height").toInt());
        }
    return all.isEmpty() ? QSize() : QSize(all.right() + 1, all.bottom() + 1);
}

bool SwayWindowSystem::belongsTo(WindowId window, qint64 pid) {
    const std::optional<QJsonObject> node = view(window);
    return node && node->value(u"pid").toInteger() == pid;
}

} // namespace mervak
