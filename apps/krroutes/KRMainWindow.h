#pragma once

#include <QMainWindow>

/**
 * The window of the viewer. It puts the parts together and holds no data of its own.
 */
class KRMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit KRMainWindow(QWidget *parent = nullptr);

private:
    void createFileMenu();
};
