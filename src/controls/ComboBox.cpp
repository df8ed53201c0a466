#include "controls/ComboBox.h"

#include "platform/Failure.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QSignalBlocker>

namespace
{
// Letters select nothing; the blank opens the list and chooses from it.
bool types(const QKeyEvent &event)
{
    return !event.text().isEmpty() && event.text().front().isPrint() && event.key() != Qt::Key_Space;
}

// Keeps letters from the list that a combo box opens.
class NoTyping final : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *, QEvent *event) override
    {
        return event->type() == QEvent::KeyPress && types(*static_cast<QKeyEvent *>(event));
    }
};
} // namespace

ComboBox::ComboBox(QWidget *parent) : QComboBox(parent)
{
    view()->installEventFilter(new NoTyping(this));
    connect(this, &QComboBox::activated, this, [this] { Q_EMIT Click(); });
}

// A drop-down list begins without a choice, whatever is added.
void ComboBox::AddItem(const QString &text)
{
    const int chosen = currentIndex();
    const QSignalBlocker quiet(this);
    addItem(text, 0);
    setCurrentIndex(chosen);
}

void ComboBox::Clear() { clear(); }

int ComboBox::ItemData(int index) const
{
    if (index < 0 || index >= count())
        throw Failure(Failure::InvalidPropertyValue, objectName(), QStringLiteral("No row %1").arg(index));
    return itemData(index).toInt();
}

void ComboBox::SetItemData(int index, int number) { setItemData(index, number); }

QString ComboBox::ChosenItemData() const { return QString::number(ItemData(ListIndex())); }

void ComboBox::setListIndex(int index)
{
    if (index < -1 || index >= count())
        throw Failure(Failure::InvalidPropertyValue, objectName(), QStringLiteral("No row %1").arg(index));
    setCurrentIndex(index);
    if (index >= 0) Q_EMIT Click();
}

void ComboBox::ChooseText(const QString &text)
{
    const int index = findText(text);
    if (index < 0)
        throw Failure(Failure::InvalidPropertyValue, objectName(), QStringLiteral("No row %1").arg(text));
    setListIndex(index);
}

// Arrows and the keys that open the list keep their work.
void ComboBox::keyPressEvent(QKeyEvent *event)
{
    if (!types(*event)) QComboBox::keyPressEvent(event);
}
