#pragma once

#include "ScriptLine.h"

#include <QJsonObject>
#include <QMap>

#include <functional>
#include <optional>
#include <map>
#include <stdexcept>

class QTextStream;

namespace ravlin::sandbox {

class SandboxSession;
class ScriptRunner;

// A mistake in the script itself (exit status 2).
struct ScriptError {
    QString message;
};

// What a command handler works with.
struct CommandContext {
    const ScriptLine& line;
    SandboxSession& session;
    ScriptRunner& runner;

    QString word(qsizetype i) const { return line.word(i); }
    qsizetype wordCount() const { return line.words.size(); }
    // The word, or a script error naming what is missing.
    QString need(qsizetype i, const QString& what) const;
    // The word read as a number, or a script error naming what it should have been.
    double number(qsizetype i, const QString& what) const;
    // name=value options from word i on.
    QMap<QString, QString> options(qsizetype from) const;
    [[noreturn]] void fail(const QString& message) const { throw ScriptError{message}; }
};

// Runs sandbox scripts line by line over one session.
class ScriptRunner {
public:
    enum class Phase { BeforeStart, AfterStart, Any };
    using Handler = std::function<void(CommandContext&)>;
    // Builds a section of the dump; consume marks events and openings as seen.
    using Section = std::function<QJsonValue(SandboxSession&, bool consume)>;

    ScriptRunner(SandboxSession& session, QTextStream& out, QTextStream& err);

    void addCommand(const QString& name, Phase phase, Handler handler);
    // Commands of the script language that this build does not serve yet.
    void addUnsupported(const QStringList& names);
    void addSection(const QString& name, Section section);

    // Echo each command to the error stream before running it (the demo's narration).
    void setEcho(bool on) { m_echo = on; }

    // The macOS generation and hiding technique a table-driven run gives the desktop before
    // the script's first line (`--cell 27:engine`); `upgrade` goes to it.
    struct Cell {
        int system = 15;
        bool engine = false;
    };
    void setCell(const Cell& cell) { m_cell = cell; }
    const std::optional<Cell>& cell() const { return m_cell; }
    // Runs one line as if it stood in the script (for commands that hold another command).
    void executeLine(const ScriptLine& line) { execute(line); }

    // Runs a whole script; returns the exit status (0 fine, 1 failed expect, 2 script error).
    int run(const QString& script);
    int commandsRun() const { return m_commandsRun; }

    QJsonObject dump(const QStringList& sections, bool consume);
    QStringList sectionNames() const;
    void print(const QJsonObject& object);
    QTextStream& err() { return m_err; }
    SandboxSession& session() { return m_session; }

private:
    struct Command {
        Phase phase;
        Handler handler;
    };
    void execute(const ScriptLine& line);

    SandboxSession& m_session;
    QTextStream& m_out;
    QTextStream& m_err;
    std::map<QString, Command> m_commands;
    std::map<QString, Section> m_sections;
    bool m_echo = false;
    int m_commandsRun = 0;
    std::optional<Cell> m_cell;
};

// Raised by `expect` when the expectation does not hold (exit status 1).
struct ExpectFailure {
    QString expected;
    QString found;
};

} // namespace ravlin::sandbox
