#include "ResourceBundle.h"

#include "Logging.h"

#include <QDir>
#include <QFileInfo>

namespace ravlin {
namespace {

// "de_DE.UTF-8@euro" → "de-DE"; "C" and "POSIX" say nothing about a language.
QString normaliseTag(QString tag)
{
    tag = tag.section(u'.', 0, 0).section(u'@', 0, 0).replace(u'_', u'-').trimmed();
    if (tag.isEmpty() || tag == u"C" || tag == u"POSIX")
        return {};
    return tag;
}

QString aliasFor(const QString& tag)
{
    const QString lower = tag.toLower();
    const QString base = lower.section(u'-', 0, 0);
    const QString rest = lower.section(u'-', 1);
    if (base == u"zh") {
        if (rest.contains(u"hant") || rest == u"tw" || rest == u"hk" || rest == u"mo")
            return QStringLiteral("zh-Hant");
        return QStringLiteral("zh-Hans");
    }
    if (base == u"pt")
        return QStringLiteral("pt-BR");
    if (base == u"no" || base == u"nn" || base == u"nb")
        return QStringLiteral("nb");
    if (base == u"iw")
        return QStringLiteral("he");
    if (base == u"in")
        return QStringLiteral("id");
    return base;
}

} // namespace

std::shared_ptr<ResourceBundle> ResourceBundle::open(const QString& lprojPath)
{
    if (!QFileInfo(lprojPath).isDir())
        return nullptr;
    return std::shared_ptr<ResourceBundle>(new ResourceBundle(lprojPath));
}

QString ResourceBundle::localizedString(const QString& key, const QString& table) const
{
    auto it = m_tables.find(table);
    if (it == m_tables.end()) {
        QString error;
        auto loaded =
            StringsTable::load(m_path + u'/' + table + QStringLiteral(".strings"), &error);
        if (!loaded)
            qCWarning(lcLanguage) << "cannot read" << table << "in" << m_path << ":" << error;
        it = m_tables.insert(table, std::move(loaded));
    }
    if (*it) {
        if (auto value = (*it)->value(key))
            return *value;
    }
    return key;
}

Resources::Resources(QString root, QStringList preferredLanguages) : m_root(std::move(root))
{
    m_mainCode = bestMatch(localizations(), preferredLanguages).value_or(QStringLiteral("en"));
    m_main = bundle(m_mainCode);
    if (!m_main)
        m_main = std::shared_ptr<ResourceBundle>(ResourceBundle::open(m_root));
    if (!m_main)
        qCWarning(lcLanguage) << "no language resources found in" << m_root;
}

QString Resources::locate(const QString& executableDir)
{
    const QStringList candidates = {
        executableDir + QStringLiteral("/../Resources"), // Ravlin.app/Contents/MacOS → Resources
        executableDir + QStringLiteral("/resources"),
        executableDir + QStringLiteral("/../share/ravlin/resources"),
    };
    for (const QString& dir : candidates) {
        if (QFileInfo(dir + QStringLiteral("/en.lproj")).isDir())
            return QDir::cleanPath(dir);
    }
    return QDir::cleanPath(candidates[1]);
}

QStringList Resources::localizations() const
{
    QStringList codes;
    const QStringList dirs =
        QDir(m_root).entryList({QStringLiteral("*.lproj")}, QDir::Dirs, QDir::Name);
    for (const QString& dir : dirs)
        codes.append(dir.chopped(6));
    return codes;
}

std::shared_ptr<ResourceBundle> Resources::bundle(const QString& code) const
{
    if (code.isEmpty() || code.contains(u'/') || code.contains(u".."))
        return nullptr;
    auto it = m_cache.constFind(code);
    if (it != m_cache.constEnd())
        return *it;
    auto opened = ResourceBundle::open(m_root + u'/' + code + QStringLiteral(".lproj"));
    if (opened)
        m_cache.insert(code, opened);
    return opened;
}

std::shared_ptr<ResourceBundle> Resources::mainBundle() const
{
    return m_main;
}

std::optional<QString> Resources::bestMatch(const QStringList& available,
                                            const QStringList& preferred)
{
    auto find = [&](const QString& code) -> std::optional<QString> {
        for (const QString& a : available)
            if (a.compare(code, Qt::CaseInsensitive) == 0)
                return a;
        return std::nullopt;
    };
    for (const QString& raw : preferred) {
        const QString tag = normaliseTag(raw);
        if (tag.isEmpty())
            continue;
        if (auto exact = find(tag))
            return exact;
        if (auto alias = find(aliasFor(tag)))
            return alias;
    }
    return std::nullopt;
}

} // namespace ravlin
