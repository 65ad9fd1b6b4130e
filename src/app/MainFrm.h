#pragma once

#include <QMainWindow>

class MainFrm : public QMainWindow {
    Q_OBJECT
public:
    explicit MainFrm(QWidget *parent = nullptr);
};
