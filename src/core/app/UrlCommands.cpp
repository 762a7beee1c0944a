#include "UrlCommands.h"

#include "AppDelegate.h"
#include "core/bar/LayoutName.h"
#include "core/bar/StatusBarController.h"
#include "core/bar/TilePanel.h"
#include "core/discovery/ScannerModel.h"
#include "core/tiles/BarItem.h"
#include "foundation/Logging.h"

namespace ravlin {
namespace {

// What a log line shows of a URL or a name from one: enough to recognise it, never a flood,
// quoted with its control characters escaped, so that no URL can write a line of its own.
QString shown(const QString& text)
{
    return LayoutName::quoted(text.size() > 120 ? text.left(120) + QStringLiteral("…") : text);
}

QString nameOf(const BarItem& item)
{
    return item.label.isEmpty() ? item.info.owner : item.label;
}

} // namespace

bool UrlCommands::handle(const QString& url)
{
    QString why;
    const std::optional<UrlCommand> command = UrlCommand::parse(url, &why);
    if (!command) {
        qCWarning(lcApp).noquote() << "the URL" << shown(url) << "is not understood:" << why;
        return false;
    }
    if (!m_app.statusBar()) {
        // A script flooding a starting Ravlin gets its first few commands done, not a heap.
        if (m_waiting.size() >= maxWaiting) {
            qCWarning(lcApp).noquote() << "the URL" << shown(url)
                                       << "is dropped: too many wait for the start to finish";
            return false;
        }
        m_waiting.append(*command);
        return true;
    }
    perform(*command);
    return true;
}

void UrlCommands::ready()
{
    const QList<UrlCommand> waiting = std::exchange(m_waiting, {});
    for (const UrlCommand& command : waiting)
        perform(command);
}

std::optional<BarItem> UrlCommands::findItem(const QString& keyOrName) const
{
    const std::vector<BarItem>& items = m_app.scannerModel().detected();
    for (const BarItem& item : items)
        if (item.key == keyOrName)
            return item;
    std::optional<BarItem> found;
    QStringList others;
    for (const BarItem& item : items) {
        if (nameOf(item).compare(keyOrName, Qt::CaseInsensitive) != 0)
            continue;
        if (found)
            others.append(item.key);
        else
            found = item;
    }
    // Which one a name meant cannot be known: the log says which was taken, and how to name
    // the others.
    if (found && !others.isEmpty())
        qCInfo(lcApp).noquote()
            << QStringLiteral("several items are named %1: the URL opens %2; a URL with its key "
                              "opens another (%3)")
                   .arg(shown(keyOrName), shown(found->key),
                        shown(others.join(QStringLiteral(", "))));
    return found;
}

void UrlCommands::perform(const UrlCommand& command)
{
    StatusBarController* bar = m_app.statusBar();
    if (!bar)
        return;
    if (bar->arranging()) {
        qCInfo(lcApp) << "a URL asks for something while the menu bar is being arranged; ignored";
        return;
    }
    TilePanel* panel = m_app.windows().panel;
    const bool open = panel && panel->isVisible();
    using A = UrlCommand::Action;
    switch (command.action) {
    case A::OpenPanel:
        if (!open)
            bar->toggleTileFromKeyboard();
        break;
    case A::ClosePanel:
        if (open)
            bar->closeTile();
        break;
    case A::TogglePanel:
        bar->toggleTileFromKeyboard();
        break;
    case A::Reveal:
        if (!bar->expanded())
            bar->toggleInBar();
        break;
    case A::Hide:
        if (bar->expanded())
            bar->menuToggle();
        break;
    case A::SwitchLayout:
        bar->switchLayout(command.argument, QStringLiteral("a URL")); // logs a name it lacks
        break;
    case A::OpenItem:
        if (const std::optional<BarItem> item = findItem(command.argument))
            bar->openItem(*item);
        else
            qCWarning(lcApp).noquote() << "a URL asks to open" << shown(command.argument)
                                       << "but no item in the menu bar has that key or name";
        break;
    case A::Search:
        search(command.argument);
        break;
    }
}

// The panel opens (or stays open) with the text typed into its search.
void UrlCommands::search(const QString& text)
{
    TilePanel* panel = m_app.windows().panel;
    if (!panel)
        return;
    if (!panel->isVisible())
        m_app.statusBar()->toggleTileFromKeyboard();
    panel->search(text);
}

} // namespace ravlin
