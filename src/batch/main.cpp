#include "batch/Batch.h"

#include <QCoreApplication>

#include <fcntl.h>

int main(int argc, char **argv)
{
    // A closed standard stream must not lend its number to a file of the run, which would then get the stream's text.
    int number = 0;
    do number = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    while (number >= 0 && number <= 2);
    useUtf8Names();
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    out.setCodec("UTF-8");
    err.setCodec("UTF-8");
    return runBatch(QCoreApplication::arguments(), out, err);
}
