// Makes the database that is delivered.
//
// Usage: MakeSeedDatabase <file>

#include "store/NewDatabase.h"

#include <QFile>
#include <QTextStream>
#include <exception>

int main(int argc, char** argv) {
    if (argc != 2) {
        QTextStream(stderr) << "usage: MakeSeedDatabase <file>\n";
        return 2;
    }
    const QString path = QString::fromLocal8Bit(argv[1]);
    QFile::remove(path);
    try {
        MakeSeedDatabase(path);
    } catch (const std::exception& error) {
        QTextStream(stderr) << error.what() << '\n';
        return 1;
    }
    return 0;
}
