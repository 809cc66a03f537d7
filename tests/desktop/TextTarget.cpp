// A window with a text field, the way most programs have one: what is in the field is also in the file named on the
// command line, after every change.
#include <QApplication>
#include <QPlainTextEdit>
#include <QSaveFile>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QString path = QString::fromLocal8Bit(argv[1]);
    QPlainTextEdit editor;
    QObject::connect(&editor, &QPlainTextEdit::textChanged, &editor, [&] {
        QSaveFile file(path);
        if (file.open(QSaveFile::WriteOnly)) {
            file.write(editor.toPlainText().toUtf8());
            file.commit();
        }
    });
    editor.show();
    return QApplication::exec();
}
