// The least that a Qt dialog program can be: what the wizard's start-up is compared with.
#include <QApplication>
#include <QDialog>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QDialog dialog;
    return dialog.exec();
}
