#include "tests/desktop/screen.h"

#include <sys/prctl.h>

#include <QClipboard>
#include <QElapsedTimer>
#include <QPixmap>
#include <QScreen>
#include <QThread>
#include <csignal>
#include <stdexcept>

namespace desktop_test {
namespace {

constexpr int kPatience = 30'000;  // milliseconds

bool WaitFor(const std::function<bool()>& isSo) {
  constexpr int kPause = 50;
  QElapsedTimer clock;
  clock.start();
  while (clock.elapsed() < kPatience) {
    if (isSo()) return true;
    if (QCoreApplication::instance() != nullptr) QCoreApplication::processEvents();
    QThread::msleep(kPause);
  }
  return false;
}

QString Output(const QString& program, const QStringList& words) {
  QProcess process;
  process.start(program, words);
  if (!process.waitForFinished(kPatience)) {
    throw std::runtime_error((program + " did not end").toStdString());
  }
  return QString::fromUtf8(process.readAllStandardOutput());
}

// However this process ends.
void EndWithThisProcess(QProcess& process) {
  process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

QString Xdotool(const QStringList& words) { return Output("xdotool", words); }

}  // namespace

Screen::Screen() {
  EndWithThisProcess(server_);
  server_.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"});
  if (!server_.waitForStarted() || !server_.waitForReadyRead(kPatience)) {
    throw std::runtime_error("Xvfb does not run: scripts/install-packages --tests installs it");
  }
  qputenv("DISPLAY", ':' + server_.readLine().trimmed());
}

Screen::~Screen() {
  server_.terminate();
  server_.waitForFinished();
}

Shown::Shown(const QString& program, const QString& folder) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* const name : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"}) {
    environment.insert(name, folder);
  }
  environment.insert("LANG", "C.UTF-8");
  environment.insert("LC_ALL", "C.UTF-8");
  environment.insert("QT_QPA_PLATFORM", "xcb");
  EndWithThisProcess(program_);
  program_.setProcessEnvironment(environment);
  program_.setWorkingDirectory(folder);
  program_.setProcessChannelMode(QProcess::ForwardedChannels);
  program_.start(program, QStringList());
  if (!program_.waitForStarted()) throw std::runtime_error("the program does not start");
}

Shown::~Shown() {
  program_.kill();
  program_.waitForFinished();
}

QStringList Shown::Windows(const QString& title) {
  const QString exactly = '^' + QString(title).replace('*', "[*]").replace('.', "[.]") + '$';
  return Xdotool({"search", "--onlyvisible", "--name", exactly}).split('\n', Qt::SkipEmptyParts);
}

void Shown::Await(const QString& title) {
  QStringList found;
  const auto isThere = [&] {
    found = Windows(title);
    found.removeAll(window_);
    return !found.isEmpty();
  };
  if (!WaitFor(isThere)) {
    Photograph().save("screen.png");
    throw std::runtime_error("there is no window " + title.toStdString());
  }
  window_ = found.last();
  Xdotool({"windowfocus", window_});
  constexpr int kUntilItKnows = 150;  // milliseconds until the program takes keys in that window
  QThread::msleep(kUntilItKnows);
}

void Shown::Press(const QStringList& keys) { Xdotool(QStringList{"key", "--delay", "40"} + keys); }

void Shown::Type(const QString& text) { Xdotool({"type", "--delay", "20", text}); }

void Shown::Click(int x, int y) {
  Xdotool({"mousemove", QString::number(x), QString::number(y), "click", "1"});
}

QString Shown::Clipboard(const std::function<bool(const QString&)>& isThere) {
  QString text;
  WaitFor([&] {
    text = QGuiApplication::clipboard()->text();
    return isThere(text);
  });
  return text;
}

QImage Photograph() { return QGuiApplication::primaryScreen()->grabWindow(0).toImage(); }

int CountOf(const QImage& picture, const QRect& part, QRgb color) {
  constexpr int kNear = 60;
  const auto isNear = [](int a, int b) { return std::abs(a - b) <= kNear; };
  int count = 0;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) {
      const QRgb pixel = picture.pixel(x, y);
      count += isNear(qRed(pixel), qRed(color)) && isNear(qGreen(pixel), qGreen(color)) &&
               isNear(qBlue(pixel), qBlue(color));
    }
  }
  return count;
}

}  // namespace desktop_test
