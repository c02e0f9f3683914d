#include "catalogue/Picture.h"
#include "catalogue/Screens.h"
#include "catalogue/Tables.h"
#include "routes/Table.h"

namespace VanticRestKit::sample {

namespace {

/// The title on a picture; an empty string if nothing has this name.
std::string titleOf(const std::string& kind, const std::string& name) {
    if (kind == "show") {
        const Show* show = catalogue().show(name);
        return show != nullptr ? show->title : "";
    }
    if (kind == "series") {
        const Series* series = catalogue().series(name);
        return series != nullptr ? series->show->title + " " + std::to_string(series->number) : "";
    }
    if (kind == "video") {
        const Video* video = catalogue().video(name);
        return video != nullptr ? video->title : "";
    }
    if (kind == "collection") {
        const Collection* collection = collectionOf(name);
        return collection != nullptr ? collection->title : "";
    }
    if (kind == "avatar") {
        const Avatar* avatar = rowOf(avatars(), name);
        return avatar != nullptr ? avatar->description : "";
    }
    const Screen* screen = screenAt("/" + kind + "/" + name);
    return screen != nullptr ? screen->title : "";
}

Reply picture(const Request&, const Captures& captures) {
    const std::string ending = ".svg";
    const std::string& file = captures[2];
    const std::string title = titleOf(captures[0], captures[1]);
    Reply reply;
    reply.contentType = "image/svg+xml";
    if (!title.empty() && file.ends_with(ending)) {
        reply.text = drawnPicture(title, file.substr(0, file.size() - ending.size()));
    }
    if (!reply.text || reply.text->empty()) return failure(404, "No such picture");
    return reply;
}

}  // namespace

std::vector<Route> pictureRoutes() { return {{"GET", "pictures/{kind}/{name}/{file}", picture}}; }

}  // namespace VanticRestKit::sample
