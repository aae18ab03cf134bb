// What a program with a window costs at the least: one that has nothing but an empty one.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(760, 560); // as large as Ravlin's
    window.show();
    return QApplication::exec();
}
