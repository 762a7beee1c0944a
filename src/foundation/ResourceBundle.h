#pragma once

#include "StringsTable.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace ravlin {

// One language folder (<code>.lproj) with its string tables, loaded on first use.
class ResourceBundle {
public:
    static std::shared_ptr<ResourceBundle> open(const QString& lprojPath);

    QString path() const { return m_path; }
    // The text for key in the table, or the key itself when there is none.
    QString localizedString(const QString& key,
                            const QString& table = QStringLiteral("Localizable")) const;

private:
    explicit ResourceBundle(QString path) : m_path(std::move(path)) {}

    QString m_path;
    mutable QHash<QString, std::optional<StringsTable>> m_tables;
};

// The application's resource folder: where the .lproj folders live, beside the
// executable or in the application bundle, and the system's preferred languages.
class Resources {
public:
    Resources(QString root, QStringList preferredLanguages);

    // Finds the resource folder for an executable in dir (".../Contents/MacOS" in a bundle).
    static QString locate(const QString& executableDir);

    QString root() const { return m_root; }
    QStringList localizations() const;
    // The folder of one language, or null when there is none.
    std::shared_ptr<ResourceBundle> bundle(const QString& code) const;
    // The main bundle: the localisation that best matches the system's languages, else "en".
    std::shared_ptr<ResourceBundle> mainBundle() const;
    QString mainLocalization() const { return m_mainCode; }

    // Matches system language tags ("de_DE.UTF-8", "zh-TW", "iw") to an available code.
    static std::optional<QString> bestMatch(const QStringList& available,
                                            const QStringList& preferred);

private:
    QString m_root;
    QString m_mainCode;
    std::shared_ptr<ResourceBundle> m_main;
    mutable QHash<QString, std::shared_ptr<ResourceBundle>> m_cache;
};

} // namespace ravlin
