#include "Parts.h"

namespace living_room {

namespace {

constexpr struct {
    const char* screen;
    const char* address;
    const char* title;
} menu[] = {
    {"home", "/", "Home"}, {"search", "/search", "Search"}, {"live", "/live", "Live"}, {"me", "/me", "Me"}};

constexpr struct {
    const char* name;
    const char* title;
} faults[] = {{"none", "Nothing is broken"},
              {"offline", "Offline"},
              {"slow", "Slow"},
              {"500", "Status 500"},
              {"not-json", "Not JSON"},
              {"row-without-title", "A row without its title"},
              {"unknown-entities", "Unknown entities"},
              {"broken-elements", "Broken elements"},
              {"expired-token", "Expired token"}};

Html menuMarkup(const std::string& screen) {
    std::vector<Html> items;
    for (const auto& item : menu) {
        items.push_back(html(R"(<a href="{}" data-menu="{}"{}>{}</a>)", item.address, item.screen,
                             when(item.screen == screen, html(R"( aria-current="page")")), item.title));
    }
    return html(
        R"(<header class="bar"><a class="logo" href="/" tabindex="-1" aria-hidden="true">living room</a>)"
        R"(<nav aria-label="Screens">{}</nav><time class="clock" aria-label="Time"></time>)"
        R"(<button type="button" class="quiet" data-action="break-it" aria-expanded="false")"
        R"( aria-controls="faults">Break it</button></header>)",
        items);
}

Html panelMarkup() {
    std::vector<Html> buttons;
    for (const auto& fault : faults) {
        buttons.push_back(
            html(R"(<button name="name" value="{}" data-fault="{}" aria-pressed="false">{}</button>)",
                 fault.name, fault.name, fault.title));
    }
    return html(R"(<aside id="faults" data-panel="faults" aria-label="Break it" hidden><h2>Break it</h2>)"
                R"(<p>What the service does from now on, for everybody.</p>)"
                R"(<form method="post" action="/fault">{}</form>)"
                R"(<h3>What survived</h3><ul data-list="survived"></ul>)"
                R"(<div class="lists" aria-live="off"></div></aside>)",
                buttons);
}

Html skeletonMarkup(const std::string& kind) {
    std::vector<Html> shapes(kind == "tiles" ? 6 : kind == "channels" ? 5 : 1, html("<i></i>"));
    return html(R"(<div class="skeleton {}" aria-hidden="true">{}</div>)", kind, shapes);
}

}  // namespace

Html pageAround(const Visit& visit, const char* screen, const std::string& title, const Html& content) {
    visit.user->log().clear();
    return html(
        R"(<!doctype html><html lang="en"><head><meta charset="utf-8"><title>{} – Living room</title>)"
        R"(<meta name="viewport" content="width=device-width, initial-scale=1">)"
        R"(<link rel="stylesheet" href="/living-room.css"><link rel="icon" href="/living-room.svg">{})"
        R"(<script defer src="/living-room.js"></script></head><body data-screen="{}">)"
        R"(<a class="skip" href="#main">Skip to the screen</a>{}<main id="main" tabindex="-1">{})"
        R"(<noscript><p class="empty">This screen needs JavaScript.</p></noscript></main>{}</body></html>)",
        title, when(!visit.hlsFile.empty(), html(R"(<script defer src="/hls.js"></script>)")), screen,
        menuMarkup(screen), content, panelMarkup());
}

Html block(const std::string& address, const char* skeleton) {
    return html(R"(<div data-src="{}" data-state="loading" aria-busy="true">{}</div>)", address,
                skeletonMarkup(skeleton));
}

Html rowBlock(const std::string& title, const std::string& address) {
    return html(R"(<section class="row" data-row="{}" data-src="{}" data-state="loading" aria-busy="true">)"
                R"(<h2>{}</h2><div class="content">{}</div></section>)",
                title, address, title, skeletonMarkup("tiles"));
}

Html badgesMarkup(const std::vector<ViewBadge>& badges) {
    std::vector<Html> parts;
    for (const ViewBadge& badge : badges) {
        parts.push_back(html(R"(<span class="badge" data-badge="{}">{}</span>)", badge.kind, badge.text));
    }
    return html("{}", parts);
}

Html progressMarkup(const std::optional<ViewProgress>& progress) {
    if (!progress) return {};
    return html(R"(<progress data-progress="{}" value="{}" max="{}" aria-label="Watched"></progress>)",
                progress->position, progress->position, progress->length);
}

Html factsMarkup(const std::vector<std::string>& facts) {
    std::vector<Html> parts;
    for (const std::string& fact : facts) {
        if (!fact.empty()) parts.push_back(html("<span>{}</span>", fact));
    }
    return parts.empty() ? Html() : html(R"(<p class="facts">{}</p>)", parts);
}

Html tileMarkup(const ViewTile& tile) {
    const Html image = html(R"(<img src="{}" alt="" loading="lazy" decoding="async">)", tile.picture);
    return html(
        R"(<a class="tile" href="{}" data-kind="{}"><span class="picture">{}<span class="badges">{}</span>{}</span>)"
        R"(<span class="title">{}</span><span class="subtitle">{}</span></a>)",
        tile.link, tile.kind, when(!tile.picture.empty(), image), badgesMarkup(tile.badges),
        progressMarkup(tile.progress), tile.title, tile.subtitle);
}

Html tilesMarkup(const std::vector<ViewTile>& tiles) {
    std::vector<Html> parts;
    for (const ViewTile& tile : tiles) parts.push_back(tileMarkup(tile));
    return html(R"(<div class="tiles">{}</div>)", parts);
}

Answer tilesAnswer(const std::vector<ViewTile>& tiles, const char* sentenceIfNone) {
    if (tiles.empty()) return blockAnswer(emptyMarkup(sentenceIfNone), "empty");
    return blockAnswer(tilesMarkup(tiles));
}

Html channelMarkup(const ViewChannel& channel) {
    Html programme;
    if (channel.now) {
        const auto start = static_cast<std::int64_t>(channel.now->start);
        const auto end = static_cast<std::int64_t>(channel.now->end);
        programme = html(
            R"(<span class="now">{}</span><span class="subtitle">{}</span>)"
            R"(<progress data-progress data-start="{}" data-end="{}" value="0" max="{}")"
            R"( aria-label="Sent so far"></progress><span class="times"><time data-time="{}"></time>)"
            R"( – <time data-time="{}"></time></span>)",
            channel.now->displayTitle, channel.now->displaySubtitle, start, end, end - start, start, end);
    }
    if (channel.next) {
        programme += html(R"(<span class="next"><b>Next</b> <time data-time="{}"></time> {}</span>)",
                          channel.next->start, channel.next->displayTitle);
    }
    const Html image = html(R"(<img src="{}" alt="" loading="lazy">)", channel.tile.picture);
    return html(
        R"(<a class="tile channel" href="{}" data-kind="{}"><span class="picture">{}<span class="badges">{}</span>)"
        R"(</span><span class="title">{}</span>{}</a>)",
        channel.tile.link, channel.tile.kind, when(!channel.tile.picture.empty(), image),
        badgesMarkup(channel.tile.badges), channel.tile.subtitle, programme);
}

Html emptyMarkup(const std::string& sentence) { return html(R"(<p class="empty">{}</p>)", sentence); }

}  // namespace living_room
