#pragma once

#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>

/// A web server on 127.0.0.1 that gives the same answer to each request for a path and remembers
/// what was asked for.
class LoopbackServer
{
public:
    LoopbackServer()
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] { accept(); });
    }

    void answer(const QByteArray &path, const QByteArray &headers, const QByteArray &body)
    {
        m_answers[path] = "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " +
                          QByteArray::number(body.size()) + "\r\n" + headers + "\r\n\r\n" + body;
    }
    QByteArray url(const QByteArray &path) const
    {
        return "http://127.0.0.1:" + QByteArray::number(m_server.serverPort()) + path;
    }
    int requests(const QByteArray &path) const { return m_requests.value(path); }

private:
    void accept()
    {
        QTcpSocket *socket = m_server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
            if (!socket->canReadLine())
                return;
            const QByteArray path = socket->readLine().split(' ').value(1);
            socket->readAll();
            ++m_requests[path];
            socket->write(m_answers.value(path, "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n"
                                                "Connection: close\r\n\r\n"));
            socket->disconnectFromHost();
        });
    }

    QTcpServer m_server;
    QHash<QByteArray, QByteArray> m_answers;
    QHash<QByteArray, int> m_requests;
};
