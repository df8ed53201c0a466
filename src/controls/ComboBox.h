// A drop-down list whose rows carry a number of their own (ItemData). It is chosen from, never typed into.
// Assigning ListIndex counts as a click, even when the index stays the same.
#pragma once

#include <QComboBox>

class ComboBox : public QComboBox
{
    Q_OBJECT
public:
    explicit ComboBox(QWidget *parent = nullptr);

    void AddItem(const QString &text);
    int NewIndex() const { return count() - 1; }
    void Clear();

    int ListCount() const { return count(); }
    QString List(int index) const { return itemText(index); }
    int ItemData(int index) const; // 0 for a row that was given none; Failure outside the list
    void SetItemData(int index, int number);
    QString ChosenItemData() const; // of the chosen row, in digits; Failure without one

    int ListIndex() const { return currentIndex(); }
    void setListIndex(int index);         // Failure outside the list
    void ChooseText(const QString &text); // the first row of that text; Failure without one

Q_SIGNALS:
    void Click();

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
