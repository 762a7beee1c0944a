#include "LocalHttpServer.h"

#include <QTcpSocket>

namespace ravlin::test {

LocalHttpServer::LocalHttpServer()
{
    m_server.listen(QHostAddress::LocalHost, 0);
    connect(&m_server, &QTcpServer::newConnection, this, &LocalHttpServer::accept);
}

QUrl LocalHttpServer::url(const QString& path) const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(m_server.serverPort()).arg(path));
}

void LocalHttpServer::setJson(int status, const QByteArray& body)
{
    setResponse("HTTP/1.1 " + QByteArray::number(status) +
                " X\r\nContent-Type: application/json\r\nContent-Length: " +
                QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
}

QByteArray LocalHttpServer::target(int n) const
{
    const QByteArray head = m_heads.value(n);
    return head.left(head.indexOf("\r\n")).split(' ').value(1);
}

void LocalHttpServer::accept()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        socket->setParent(this);
        socket->setProperty("buffer", QByteArray());
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
    }
}

void LocalHttpServer::read(QTcpSocket* socket)
{
    QByteArray buffer = socket->property("buffer").toByteArray() + socket->readAll();
    const qsizetype end = buffer.indexOf("\r\n\r\n");
    if (end < 0) {
        socket->setProperty("buffer", buffer);
        return;
    }
    m_heads.append(buffer.left(end));
    if (m_silent)
        return;
    socket->write(m_response);
    socket->disconnectFromHost();
}

} // namespace ravlin::test
