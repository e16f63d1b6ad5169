// What a screen reader hears of the programs on the accessibility bus: a line for each object that gets the focus
// ("focused: NAME") and for each that is ticked ("checked: yes, NAME"), by the calls that any reader makes.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <cstdio>

namespace {

QString NameOf(const QDBusConnection& Bus, const QString& Service, const QString& Path) {
  QDBusMessage Get = QDBusMessage::createMethodCall(Service, Path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                                    QStringLiteral("Get"));
  Get << QStringLiteral("org.a11y.atspi.Accessible") << QStringLiteral("Name");
  const QDBusReply<QDBusVariant> Name = Bus.call(Get);
  return Name.isValid() ? Name.value().variant().toString() : Name.error().message();
}

class TReader : public QObject {
  Q_OBJECT
 public:
  bool Listen() {
    QDBusInterface Launcher(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                            QStringLiteral("org.a11y.Bus"));
    const QDBusReply<QString> Address = Launcher.call(QStringLiteral("GetAddress"));
    if (!Address.isValid()) return false;
    Bus_ = QDBusConnection::connectToBus(Address.value(), QStringLiteral("a11y"));
    const bool Heard = Bus_.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Object"),
                                    QStringLiteral("StateChanged"), this, SLOT(StateChanged(QDBusMessage)));
    QDBusMessage Register = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("/org/a11y/atspi/registry"),
        QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("RegisterEvent"));
    Register << QStringLiteral("object:state-changed");
    return Heard && Bus_.call(Register).type() != QDBusMessage::ErrorMessage;
  }

 private Q_SLOTS:
  void StateChanged(const QDBusMessage& Event) {
    const QString State = Event.arguments().value(0).toString();
    const bool On = Event.arguments().value(1).toInt() == 1;
    if (State != QLatin1String("checked") && (State != QLatin1String("focused") || !On)) return;
    const QString Name = NameOf(Bus_, Event.service(), Event.path());
    const char* const Ticked = State == QLatin1String("focused") ? "" : On ? "yes, " : "no, ";
    std::printf("%s: %s%s\n", qPrintable(State), Ticked, qPrintable(Name));
    std::fflush(stdout);
  }

 private:
  QDBusConnection Bus_ = QDBusConnection::sessionBus();
};

}  // namespace

int main(int Count, char** Arguments) {
  const QCoreApplication Application(Count, Arguments);
  TReader Reader;
  if (!Reader.Listen()) return 1;
  std::puts("listening");
  std::fflush(stdout);
  return QCoreApplication::exec();
}

#include "reader.moc"
