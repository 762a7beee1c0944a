#include "ScriptRunner.h"

#include "SandboxSession.h"

#include <QJsonDocument>
#include <QTextStream>

namespace ravlin::sandbox {

QString CommandContext::need(qsizetype i, const QString& what) const
{
    if (i >= line.words.size())
        fail(QStringLiteral("%1 is missing").arg(what));
    return line.words[i].text;
}

double CommandContext::number(qsizetype i, const QString& what) const
{
    bool ok = false;
    const double v = need(i, what).toDouble(&ok);
    if (!ok)
        fail(QStringLiteral("%1 must be a number, not %2").arg(what, word(i)));
    return v;
}

QMap<QString, QString> CommandContext::options(qsizetype from) const
{
    QMap<QString, QString> result;
    for (qsizetype i = from; i < line.words.size(); ++i) {
        const QString& w = line.words[i].text;
        const qsizetype eq = w.indexOf(u'=');
        if (eq > 0)
            result.insert(w.left(eq), w.mid(eq + 1));
        else
            result.insert(w, QString());
    }
    return result;
}

ScriptRunner::ScriptRunner(SandboxSession& session, QTextStream& out, QTextStream& err)
    : m_session(session), m_out(out), m_err(err)
{}

void ScriptRunner::addCommand(const QString& name, Phase phase, Handler handler)
{
    m_commands[name] = Command{phase, std::move(handler)};
}

void ScriptRunner::addUnsupported(const QStringList& names)
{
    for (const QString& name : names) {
        if (m_commands.count(name))
            continue;
        addCommand(name, Phase::Any, [](CommandContext& c) {
            c.fail(QStringLiteral("not supported yet: %1").arg(c.word(0)));
        });
    }
}

void ScriptRunner::addSection(const QString& name, Section section)
{
    m_sections[name] = std::move(section);
}

QStringList ScriptRunner::sectionNames() const
{
    QStringList names;
    for (const auto& [name, section] : m_sections)
        names.append(name);
    return names;
}

QJsonObject ScriptRunner::dump(const QStringList& sections, bool consume)
{
    QJsonObject object;
    const QStringList names = sections.isEmpty() ? sectionNames() : sections;
    for (const QString& name : names) {
        auto it = m_sections.find(name);
        if (it == m_sections.end())
            throw ScriptError{QStringLiteral("unknown dump section: %1").arg(name)};
        object.insert(name, it->second(m_session, consume));
    }
    return object;
}

void ScriptRunner::print(const QJsonObject& object)
{
    m_out << QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)) << '\n';
    m_out.flush();
}

void ScriptRunner::execute(const ScriptLine& line)
{
    const QString name = line.word(0);
    auto it = m_commands.find(name);
    if (it == m_commands.end())
        throw ScriptError{QStringLiteral("unknown command: %1").arg(name)};
    const Command& command = it->second;
    if (command.phase == Phase::BeforeStart && m_session.started())
        throw ScriptError{QStringLiteral("%1 must come before start").arg(name)};
    if (command.phase == Phase::AfterStart && !m_session.started())
        throw ScriptError{QStringLiteral("%1 needs start first").arg(name)};
    CommandContext context{line, m_session, *this};
    command.handler(context);
    ++m_commandsRun;
}

int ScriptRunner::run(const QString& script)
{
    const QStringList lines = script.split(u'\n');
    for (int i = 0; i < lines.size(); ++i) {
        const int number = i + 1;
        QString error;
        const std::optional<ScriptLine> line = ScriptLine::parse(lines[i], number, &error);
        try {
            if (!line)
                throw ScriptError{error};
            if (line->isEmpty())
                continue;
            if (m_echo) {
                m_err << "> " << line->raw.trimmed() << '\n';
                m_err.flush();
            }
            execute(*line);
        } catch (const ScriptError& e) {
            m_err << "script error at line " << number << ": " << e.message << '\n';
            m_err.flush();
            return 2;
        } catch (const ExpectFailure& f) {
            m_err << "expect failed at line " << number << ": " << f.expected << " / " << f.found
                  << '\n';
            m_err.flush();
            return 1;
        }
    }
    return 0;
}

} // namespace ravlin::sandbox
