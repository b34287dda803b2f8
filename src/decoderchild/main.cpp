// KesmiraDecoder: decodes pictures for the other programs, which start it with a socket to ask it through.
#include "decoderchild/Server.h"

#include <QCoreApplication>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

int main(int argc, char **argv)
{
    // A person who starts it finds no socket.
    if (::fcntl(3, F_GETFD) < 0 || ::fcntl(4, F_GETFD) < 0) {
        std::fputs("KesmiraDecoder is started by Kesmira's other programs.\n", stderr);
        return 2;
    }
    qputenv("QT_NO_GLIB", "1"); // the toolkit's threads then wake each other by means that the shelter allows
    const QCoreApplication application(argc, argv);
    return decoder::serve();
}
