#include "app/MainFrm.h"

MainFrm::MainFrm(QWidget *parent) : QMainWindow(parent)
{
    setWindowTitle(QStringLiteral("Zorvane Reaction Times"));
    resize(785, 656);
}
