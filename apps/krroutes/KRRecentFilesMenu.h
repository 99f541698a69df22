#pragma once

#include <QMenu>

/// The files that were opened or saved last, in this viewer or another one.
class KRRecentFilesMenu : public QMenu
{
    Q_OBJECT

public:
    explicit KRRecentFilesMenu(QWidget *parent = nullptr);

signals:
    void fileChosen(const QString &fileName);

private:
    void fill();
};
