#include "app/MainFrm.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    MainFrm window;
    window.show();
    return app.exec();
}
