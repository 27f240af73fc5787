// The least that a Qt dialog program can be: what the wizard's start-up is compared with. With an argument the dialog
// shows it as a text, which makes Qt load its fonts; two more are its width and height.
#include <QApplication>
#include <QDialog>
#include <QLabel>

#include <cstdlib>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QDialog dialog;
    if (argc > 1)
        new QLabel(QString::fromLocal8Bit(argv[1]), &dialog);
    if (argc > 3)
        dialog.resize(std::atoi(argv[2]), std::atoi(argv[3]));
    return dialog.exec();
}
