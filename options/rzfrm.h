// The size dialog: ten options from 2 x 2 to 11 x 11 tiles, Resize and Cancel.
#pragma once

#include "play/vbmath.h"

#include <QDialog>
#include <array>

class QPushButton;
class QRadioButton;

class rzfrm : public QDialog
{
    Q_OBJECT
public:
    // GridN is written when the player confirms a size.
    rzfrm(Integer &GridN, QWidget *parent = nullptr);

    void Form_Load();
    void szopt_Click(int Index);
    void cb_ok_Click();
    void cb_cancel_Click();

    std::array<QRadioButton *, 10> szopt {};
    QPushButton *cb_ok = nullptr;
    QPushButton *cb_cancel = nullptr;
    Integer ChosenSize = 0;

private:
    Integer &m_gridN;
};
