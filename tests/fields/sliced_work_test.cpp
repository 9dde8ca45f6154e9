#include "fields/sliced_work.h"

#include "fakes/manual_platform.h"
#include "fakes/matchers.h"

namespace trunvex {
namespace {

class Sliced : public testing::Test {
protected:
    using End = SlicedWork::End;

    // A task that takes so many slices and throws in one of them.
    SlicedWork::Task task(std::string name, int slices, int failing = 0, std::function<void()> after = {}) {
        auto done = std::make_shared<int>(0);
        return {"test",
                [=] {
                    if (++*done == failing) throw std::runtime_error("disk full");
                    return *done < slices;
                },
                [=] { return name + " " + std::to_string(*done); },
                [=, this](End end, const std::string& reason) {
                    const std::map<End, std::string> words{{End::Done, " done"},
                                                           {End::Failed, " failed"},
                                                           {End::Cancelled, " cancelled"},
                                                           {End::Replaced, " replaced"}};
                    ends.push_back(name + words.at(end) + reason);
                    if (after) after();
                }};
    }
    void pass(int milliseconds) { platform.loop.advance(std::chrono::milliseconds(milliseconds)); }

    fakes::ManualPlatform platform;
    LabelField progress{"progress"};
    ActionField cancel{"cancel"};
    SlicedWork work{platform, progress, cancel};
    std::vector<std::string> ends;
};

TEST_F(Sliced, GoesOnUntilItEndsFailsOrIsCancelled) {
    work.idle().connect([&] { ends.push_back("idle"); });
    work.run(task("short", 1));
    EXPECT_THAT(ends, ElementsAre("short done", "idle")) << "at once";
    ends.clear();
    work.run(task("long", 3));
    EXPECT_EQ(progress.text(), "long 1");
    EXPECT_TRUE(cancel.enabled());
    pass(1);
    EXPECT_EQ(progress.text(), "long 2");
    pass(100);
    EXPECT_THAT(ends, ElementsAre("long done", "idle"));
    EXPECT_EQ(progress.text(), "");
    EXPECT_FALSE(cancel.enabled());
    ends.clear();
    work.run(task("bad", 3, 2));
    pass(100);
    EXPECT_THAT(ends, ElementsAre("bad faileddisk full", "idle"));
    ends.clear();
    work.run(task("unwanted", 3));
    cancel.press();
    pass(100);
    EXPECT_THAT(ends, ElementsAre("unwanted cancelled", "idle"));
    EXPECT_EQ(platform.loop.runningTimers(), 0);
}

TEST_F(Sliced, OneTaskFollowsAnother) {
    work.idle().connect([&] { ends.push_back("idle"); });
    work.run(task("first", 5));
    work.run(task("second", 2, 0, [this] { work.run(task("third", 2)); }));
    EXPECT_THAT(ends, ElementsAre("first replaced"));
    pass(100);
    EXPECT_THAT(ends, ElementsAre("first replaced", "second done", "third done", "idle"));
    ends.clear();
    work.run(task("fourth", 5, 0, [this] { work.run(task("fifth", 5)); }));
    work.run(task("sixth", 1));
    EXPECT_THAT(ends, ElementsAre("fourth replaced", "fifth replaced", "sixth done", "idle")) << "none is forgotten";
    ends.clear();
    // A slice may end the whole work, as one that empties what it works on does.
    auto suicide = task("own", 9);
    suicide.slice = [this] {
        work.cancel();
        return true;
    };
    work.run(std::move(suicide));
    EXPECT_THAT(ends, ElementsAre("own cancelled", "idle"));
    EXPECT_FALSE(work.running());
}

}  // namespace
}  // namespace trunvex
