// uipicture FORM.ui OUT.png: draws the form of a .ui file, 500 pixels wide and as high as it needs to be.

#include <QApplication>
#include <QFile>
#include <QPixmap>
#include <QtUiTools/QUiLoader>
#include <QWidget>

#include <memory>

int main(int count, char **arguments)
{
    constexpr int width = 500;
    QApplication application(count, arguments);
    QFile file(QString::fromLocal8Bit(arguments[1]));
    if (count != 3 || !file.open(QIODevice::ReadOnly)) {
        qCritical("usage: uipicture FORM.ui OUT.png");
        return 2;
    }
    const std::unique_ptr<QWidget> form(QUiLoader().load(&file));
    if (!form)
        return 1;
    form->resize(width, form->minimumSizeHint().height());
    form->show();
    QApplication::processEvents();
    return form->grab().save(QString::fromLocal8Bit(arguments[2])) ? 0 : 1;
}
