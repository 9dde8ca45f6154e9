#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <string>
#include <utility>
#include <vector>

namespace {

// The real program in a process of its own, its output in a pipe.
class Program {
public:
    explicit Program(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), GATEWAY_PROGRAM);
        std::vector<char*> words;
        for (std::string& argument : arguments) words.push_back(argument.data());
        words.push_back(nullptr);
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        child = fork();
        if (child == 0) {
            dup2(ends[1], 1);
            dup2(ends[1], 2);
            close(ends[0]);
            close(ends[1]);
            execv(words[0], words.data());
            _exit(99);
        }
        close(ends[1]);
        output = ends[0];
    }

    ~Program() {
        if (child > 0) kill(child, SIGKILL);
        wait();
        close(output);
    }

    int wait(int signal = 0) {
        if (child <= 0) return -1;
        if (signal != 0) kill(child, signal);
        int status = 0;
        waitpid(std::exchange(child, 0), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    int output = -1;

private:
    pid_t child = 0;
};

// Up to and with the end mark; what came when the other side closed.
std::string readTo(int descriptor, char end) {
    std::string text;
    char c = 0;
    while (read(descriptor, &c, 1) == 1) {
        text += c;
        if (c == end) break;
    }
    return text;
}

std::string ask(int descriptor, const std::string& line) {
    const std::string bytes = line + "\r";
    EXPECT_EQ(write(descriptor, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    return readTo(descriptor, '\r');
}

}  // namespace

TEST(Program, servesOneConsoleAfterTheOther) {
    Program program({"--listen", "0", "--esn", "4711", "--life", "off"});
    const std::string greeting = readTo(program.output, '\n');
    const int port = std::stoi(greeting.substr(greeting.rfind(':') + 1));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    for (int i = 0; i < 3; ++i) {
        const int console = socket(AF_INET, SOCK_STREAM, 0);
        ASSERT_EQ(connect(console, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(ask(console, "R_ESN"), "A_ESN4711\r");
        if (i == 1) {
            EXPECT_EQ(ask(console, "C_RSM"), "");  // the gateway closes
        }
        close(console);
    }
    Program second({"--listen", std::to_string(port)});
    EXPECT_NE(readTo(second.output, '\n').find("in use"), std::string::npos);
    EXPECT_EQ(second.wait(), 1);
    EXPECT_EQ(program.wait(SIGTERM), 0);
}

TEST(Program, playsASerialLineThatOutlivesARestart) {
    const std::string link = testing::TempDir() + "trunvex_line_" + std::to_string(getpid());
    Program program({"--pty", link, "--esn", "4711", "--life", "off"});
    readTo(program.output, '\n');
    const int line = open(link.c_str(), O_RDWR | O_NOCTTY);
    ASSERT_GE(line, 0);
    EXPECT_EQ(ask(line, "R_ESN"), "A_ESN4711\r");
    ASSERT_EQ(write(line, "C_RSM\r", 6), 6);
    readTo(program.output, '\n');                                                // on the line
    EXPECT_NE(readTo(program.output, '\n').find("dropped"), std::string::npos);  // gone
    EXPECT_EQ(ask(line, "R_ESN"), "A_ESN4711\r");
    EXPECT_EQ(program.wait(SIGTERM), 0);
    EXPECT_NE(access(link.c_str(), F_OK), 0);  // the link went with it
    close(line);
}

TEST(Program, badFlagsEndItWithAWord) {
    Program program({"--listen", "nowhere"});
    EXPECT_NE(readTo(program.output, '\n').find("nowhere"), std::string::npos);
    EXPECT_EQ(program.wait(), 2);
}
