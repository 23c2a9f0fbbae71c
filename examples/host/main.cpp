// The smallest host of the installed library: a bar with a header of its own
// holding one item, made the way an application makes it.
#include <OrrinQuiver/Quiver.h>
#include <OrrinQuiver/Header.h>
#include <OrrinQuiver/Headers.h>
#include <OrrinQuiver/Item.h>
#include <OrrinQuiver/Items.h>

#include <QtWidgets/QApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);

    OrrinQuiver::Quiver bar;
    bar.InitProperties();
    bar.show();
    OrrinQuiver::Header *mail = bar.Headers()->Add(0, QStringLiteral("mail"), QStringLiteral("Mail"));
    OrrinQuiver::Item *inbox = mail ? mail->Items()->Add(0, QStringLiteral("inbox"), QStringLiteral("Inbox")) : nullptr;
    if (!inbox)
        return 1;
    inbox->setSelected(true);

    if (bar.SelectedHeader() != mail || bar.SelectedItem() != inbox) {
        std::fprintf(stderr, "quiver-host: selecting the item did not open its header\n");
        return 1;
    }
    std::printf("Quiver %s: %d headers, \"%s\" open at \"%s\"\n", qPrintable(bar.Version()), bar.Headers()->Count(),
                qPrintable(mail->Caption()), qPrintable(inbox->Caption()));
    return 0;
}
