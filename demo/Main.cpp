// Shows the demonstration window and prints the region it covers once it can be seen, as `quillbox record --region`
// wants it. Runs until it is ended.

#include "DemoWindow.h"

#include <QGuiApplication>

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    quillbox::demo::DemoWindow window(QRect(40, 40, 640, 400));
    window.show();
    return QGuiApplication::exec();
}
