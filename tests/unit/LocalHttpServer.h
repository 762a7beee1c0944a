#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QTcpServer>
#include <QUrl>

class QTcpSocket;

namespace ravlin::test {

// A tiny HTTP server on 127.0.0.1 for the network tests: it answers every
// request with one prepared response, or keeps silent, and records the
// request heads it received.
class LocalHttpServer : public QObject {
public:
    LocalHttpServer();

    QUrl url(const QString& path = QStringLiteral("/")) const;

    // The raw bytes to send back (status line, headers, body).
    void setResponse(QByteArray raw)
    {
        m_response = std::move(raw);
        m_silent = false;
    }
    void setJson(int status, const QByteArray& body);
    // Accept the request and never answer.
    void setSilent() { m_silent = true; }

    const QList<QByteArray>& requestHeads() const { return m_heads; }
    // The request target of the n-th request ("/v1/forecast?latitude=…").
    QByteArray target(int n) const;

private:
    void accept();
    void read(QTcpSocket* socket);

    QTcpServer m_server;
    QByteArray m_response;
    bool m_silent = false;
    QList<QByteArray> m_heads;
};

} // namespace ravlin::test
