// What the screens do in the browser: load their parts, move the focus with the arrow keys, search, play, break things.
'use strict';

const all = (selector, root = document) => [...root.querySelectorAll(selector)];
const one = (selector, root = document) => root.querySelector(selector);

// ---- Parts of a screen: each element with data-src is loaded when it comes into view.

const loads = new Map();  // element -> AbortController of its load

async function loadPart(part, quietly = false) {
    observer.unobserve(part);
    loads.get(part)?.abort();
    const load = new AbortController();
    loads.set(part, load);
    if (!quietly) setState(part, 'loading');
    let state = 'failed', text = '';
    try {
        const answer = await fetch(part.dataset.src, {signal: load.signal});
        const sent = answer.headers.get('X-State');
        if (sent) [state, text] = [sent, await answer.text()];
    } catch {
        if (load.signal.aborted) return;
    }
    if (loads.get(part) !== load) return;
    loads.delete(part);
    if (state === 'failed' && !text) text = hostIsGone;
    if (state === 'failed' && quietly && part.dataset.state === 'failed') {
        retryLater(part, one('.failed', part));
        return;
    }
    const hadFocus = part.contains(document.activeElement);
    (one(':scope > .content', part) ?? part).innerHTML = text;
    setState(part, state);
    arrived(part, hadFocus);
}

const hostIsGone = '<div class="failed" role="status" data-retry="3"><p>The host does not answer.</p>' +
    '<button type="button" class="button" data-action="try-again">Try again</button></div>';

function setState(part, state) {
    part.dataset.state = state;
    part.toggleAttribute('aria-busy', state === 'loading');
    if (state === 'loading') part.setAttribute('aria-busy', 'true');
}

function arrived(part, hadFocus) {
    all('img', part).forEach(image => image.addEventListener('error', () => image.remove()));
    const failed = one(':scope > .failed, :scope > .content > .failed', part);
    if (failed) retryLater(part, failed); else part.retries = 0;
    watchParts(part);
    showTimes();
    startPlayer(part);
    if (hadFocus) one(focusable, part)?.focus();
    returnFocus();
    moveAwaitedFocus(part);
    showSurvived();
}

// A failure that may be temporary is tried again by itself, less and less often, as long as the part shows it.
function retryLater(part, failed) {
    const seconds = Number(failed?.dataset.retry);
    if (!seconds) return;
    part.retries = (part.retries ?? 0) + 1;
    setTimeout(() => {
        if (part.isConnected && part.dataset.state === 'failed') loadPart(part, true);
    }, 1000 * Math.min(seconds * part.retries, 20));
}

const observer = new IntersectionObserver(entries => {
    for (const entry of entries) if (entry.isIntersecting) loadPart(entry.target);
}, {rootMargin: '250px'});

function watchParts(root = document) {
    all('[data-src][data-state="loading"]', root).forEach(part => observer.observe(part));
}

function reloadParts() {
    all('main > [data-src]').forEach(part => loadPart(part));
}

// ---- Focus: arrow keys move it in two dimensions, Enter opens, Escape and Backspace go back.

const focusable = 'a[href]:not([tabindex="-1"]), button:not([disabled]), input:not([type="hidden"]), video, [tabindex="0"]';
const steps = {ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, -1], ArrowDown: [0, 1]};

function isShown(element) {
    const box = element.getBoundingClientRect();
    return box.width > 0 && box.height > 0 && !element.classList.contains('skip') &&
        getComputedStyle(element).visibility !== 'hidden';
}

// The nearest element in that direction. Sideways it must be in the same row; up and down, the nearest row comes first,
// then the distance of the centres.
function neighbour(from, [dx, dy]) {
    const a = from.getBoundingClientRect();
    let best = null, smallest = Infinity;
    for (const element of all(focusable)) {
        if (element === from || !isShown(element)) continue;
        const b = element.getBoundingClientRect();
        const ahead = dx ? (dx > 0 ? b.left - a.right : a.left - b.right) : (dy > 0 ? b.top - a.bottom : a.top - b.bottom);
        if (ahead < -8) continue;
        const overlap = dx ? Math.min(a.bottom, b.bottom) - Math.max(a.top, b.top) : 1;
        if (dx && overlap <= 0) continue;
        const offset = dx ? Math.abs(a.top + a.height / 2 - b.top - b.height / 2)
                         : Math.abs(a.left + Math.min(a.width, 300) / 2 - b.left - Math.min(b.width, 300) / 2);
        const distance = dx ? ahead + offset : Math.round(ahead / 40) * 400 + offset;
        if (distance < smallest) [best, smallest] = [element, distance];
    }
    return best;
}

function moveFocus(step) {
    const now = document.activeElement;
    const from = now && now !== document.body && now.id !== 'main' ? now : null;
    const next = from ? neighbour(from, step) : one('.tile, .button', one('main')) ?? one('nav a');
    const part = from && step[1] ? loadingPart(from, step[1], next) : null;
    awaited = part && {part, from, step};
    if (part && !loads.has(part)) loadPart(part);
    part?.scrollIntoView({block: 'nearest'});
    if (part || !next) return;
    next.focus({preventScroll: true});
    next.scrollIntoView({block: 'center', inline: 'nearest', behavior: calm.matches ? 'auto' : 'smooth'});
}

// A part that is still loading has nothing to focus: the focus stays where it is, and moves when the part has loaded.
let awaited = null;

function loadingPart(from, dy, next) {
    const a = from.getBoundingClientRect(), limit = next?.getBoundingClientRect().top;
    const isBetween = part => {
        const b = part.getBoundingClientRect();
        return dy > 0 ? b.top >= a.bottom - 8 && !(b.top >= limit) : b.bottom <= a.top + 8 && !(b.top <= limit);
    };
    const parts = all('main [data-src][data-state="loading"]');
    return (dy > 0 ? parts : parts.reverse()).find(part => isShown(part) && isBetween(part));
}

function moveAwaitedFocus(part) {
    if (awaited?.part !== part) return;
    const {from, step} = awaited;
    awaited = null;
    if (document.activeElement === from) moveFocus(step);
}

const calm = matchMedia('(prefers-reduced-motion: reduce)');

function isTyping(element) {
    return element instanceof HTMLInputElement && element.type !== 'submit';
}

function goBack() {
    if (!panel.hidden && panel.contains(document.activeElement)) return togglePanel(false);
    if (document.body.dataset.screen === 'home') return scrollTo({top: 0});
    if (history.length > 1 && document.referrer.startsWith(location.origin)) history.back();
    else location.href = '/';
}

document.addEventListener('keydown', event => {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    const target = event.target;
    const step = steps[event.key];
    if (step && !(isTyping(target) && step[0]) && !(target.id === 'player' && step[0])) {
        event.preventDefault();
        moveFocus(step);
    } else if (event.key === 'Escape' || (event.key === 'Backspace' && !isTyping(target))) {
        if (document.fullscreenElement) return;
        event.preventDefault();
        goBack();
    } else if (event.key === 'Enter' && target.id === 'player') {
        if (target.paused) target.play(); else target.pause();
    }
});

// The link that was opened on a screen gets the focus when the user comes back to the screen.
const placeKey = 'focus ' + location.pathname + location.search;

document.addEventListener('click', event => {
    const link = event.target.closest('main a[href]');
    if (!link) return;
    const part = link.closest('[data-src]');
    sessionStorage.setItem(placeKey, JSON.stringify({part: part?.dataset.src, link: link.getAttribute('href')}));
});

function returnFocus() {
    const place = JSON.parse(sessionStorage.getItem(placeKey) ?? 'null');
    if (!place || !cameBack) return;
    const part = place.part ? one(`[data-src="${CSS.escape(place.part)}"]`) : one('main');
    if (!part) return;
    if (part.dataset.state === 'loading' && !loads.has(part)) return void loadPart(part);
    const link = all('a[href]', part).find(item => item.getAttribute('href') === place.link);
    if (!link) return;
    sessionStorage.removeItem(placeKey);
    link.focus({preventScroll: true});
    link.scrollIntoView({block: 'center', inline: 'center'});
}

const cameBack = performance.getEntriesByType('navigation')[0]?.type === 'back_forward';

// ---- The clock, and what changes with it: times, and the progress of live programmes.

function clockTime(seconds) {
    return new Date(1000 * seconds).toLocaleTimeString([], {hour: '2-digit', minute: '2-digit'});
}

// "2:05" or "1:02:05".
function positionText(position) {
    const [hours, minutes, seconds] = [position / 3600, position / 60 % 60, position % 60].map(Math.floor);
    const twoDigits = number => String(number).padStart(2, '0');
    return (hours ? `${hours}:${twoDigits(minutes)}` : minutes) + ':' + twoDigits(seconds);
}

function showTimes() {
    const now = Date.now() / 1000;
    all('.clock').forEach(clock => { clock.textContent = clockTime(now); });
    all('time[data-time]').forEach(time => { time.textContent = clockTime(Number(time.dataset.time)); });
    all('time[data-position]').forEach(time => { time.textContent = positionText(Number(time.dataset.position)); });
    for (const bar of all('progress[data-end]')) {
        bar.value = Math.max(0, now - Number(bar.dataset.start));
        if (now < Number(bar.dataset.end)) continue;
        const part = bar.closest('[data-src]');
        bar.removeAttribute('data-end');
        if (part) loadPart(part, true);
    }
}

// ---- Clicks: try again, save, tabs.

document.addEventListener('click', event => {
    const button = event.target.closest('[data-action="try-again"]');
    if (button) loadPart(button.closest('[data-src]'));
    const tab = event.target.closest('[data-load]');
    if (tab) {
        event.preventDefault();
        all('[data-load]', tab.parentElement).forEach(other => other.setAttribute('aria-selected', other === tab));
        const part = document.getElementById(tab.getAttribute('aria-controls'));
        part.dataset.src = tab.dataset.load;
        loadPart(part);
    }
    if (event.target.closest('[data-action="break-it"]')) togglePanel(panel.hidden);
});

// A form inside a part is sent without leaving the screen; its part is then loaded again.
document.addEventListener('submit', async event => {
    const form = event.target;
    if (form.id === 'search') return event.preventDefault();
    const part = form.closest('[data-swap]')?.closest('[data-src]');
    const inPanel = panel.contains(form);
    if (!part && !inPanel) return;
    event.preventDefault();
    const body = new URLSearchParams(new FormData(form, event.submitter));
    try {
        await (await fetch(form.action, {method: 'POST', body})).text();
    } catch { /* the part shows it when it is loaded again */ }
    if (inPanel) {
        await loadPanel();
        reloadParts();
    } else {
        loadPart(part, true);
    }
});

// ---- Search as you type: the load for the previous letters is cancelled.

const word = one('#word');
let typingTimer = 0;
word?.addEventListener('input', () => {
    clearTimeout(typingTimer);
    typingTimer = setTimeout(() => {
        const results = one('#results');
        const query = '?q=' + encodeURIComponent(word.value);
        results.dataset.src = '/part/search' + query;
        history.replaceState(null, '', '/search' + (word.value ? query : ''));
        loadPart(results);
    }, 120);
});

// ---- The player.

function startPlayer(root) {
    const player = one('#player', root);
    if (!player) return;
    const status = one('[data-player-state]', root);
    let address = player.dataset.stream, stream = null, savedPosition = -1;

    function open(at) {
        stream?.destroy();
        stream = null;
        if (player.canPlayType('application/vnd.apple.mpegurl')) {
            player.src = address;
        } else if (globalThis.Hls?.isSupported()) {
            stream = new Hls();
            stream.loadSource(address);
            stream.attachMedia(player);
        } else {
            status.textContent = 'This browser cannot play HLS. The stream is at ' + new URL(address, location) + '.';
            return;
        }
        player.addEventListener('loadedmetadata', () => {
            if (at > 0 && (!(player.duration > 0) || at < player.duration)) player.currentTime = at;
        }, {once: true});
    }

    function savePosition(done = false) {
        const position = Math.floor(player.currentTime);
        if (!player.dataset.show || (position === savedPosition && !done)) return;
        savedPosition = position;
        const body = new URLSearchParams({show: player.dataset.show, video: player.dataset.video, position, done: done ? '1' : '0'});
        fetch('/progress', {method: 'POST', body, keepalive: true}).then(answer => answer.text()).catch(() => {});
    }

    player.addEventListener('error', () => { status.textContent = 'The stream cannot be played. It is at ' + new URL(address, location) + '.'; });
    const playButton = one('[data-action="play"]', root);
    const show = (state, label) => { status.textContent = state; playButton.textContent = label; };
    player.addEventListener('playing', () => show('Playing', 'Pause'));
    player.addEventListener('pause', () => { show('Paused', 'Play'); savePosition(); });
    player.addEventListener('ended', () => { show('Ended', 'Play again'); savePosition(true); });
    player.addEventListener('timeupdate', () => { if (Math.abs(player.currentTime - savedPosition) >= 5) savePosition(); });
    addEventListener('pagehide', () => { if (player.currentTime > 0 && !player.ended) savePosition(); });

    all('[data-quality]', root).forEach(choice => choice.addEventListener('click', () => {
        const at = player.currentTime, wasPlaying = !player.paused;
        all('[data-quality]', root).forEach(other => other.setAttribute('aria-pressed', other === choice));
        address = choice.dataset.stream;
        open(at);
        if (wasPlaying) player.play();
    }));
    playButton.addEventListener('click', () => {
        if (!player.paused) return player.pause();
        player.play();
        player.focus();
    });
    one('[data-action="restart"]', root)?.addEventListener('click', () => { player.currentTime = 0; player.play(); player.focus(); });
    open(Number(player.dataset.resume));
}

// ---- The panel that breaks things.

const panel = one('[data-panel="faults"]');
let panelTimer = 0;

function togglePanel(open) {
    if (!panel) return;
    panel.hidden = !open;
    document.body.classList.toggle('with-panel', open);
    one('[data-action="break-it"]').setAttribute('aria-expanded', open);
    sessionStorage.setItem('panel', open ? 'open' : '');
    clearInterval(panelTimer);
    if (!open) return one('[data-action="break-it"]').focus();
    loadPanel();
    panelTimer = setInterval(() => { if (!document.hidden) loadPanel(); }, 1500);
}

async function loadPanel() {
    try {
        const answer = await fetch('/part/panel');
        const text = await answer.text();
        one('.lists', panel).innerHTML = text;
    } catch { return; }
    const fault = one('[data-current-fault]', panel)?.dataset.currentFault;
    all('[data-fault]', panel).forEach(button => button.setAttribute('aria-pressed', button.dataset.fault === fault));
    showSurvived();
}

// Lists what the screen shows of each part.
function showSurvived() {
    if (!panel || panel.hidden) return;
    const lines = all('main [data-src]').filter(part => part.dataset.state !== 'loading').map(part => {
        const name = part.dataset.row ?? part.dataset.name ?? one('h1', part)?.textContent ?? 'The screen';
        const failed = one(':scope > .failed p, :scope > .content > .failed p', part);
        const tiles = part.dataset.row ? all('.tile', part).length : 0;
        return name + ': ' + (failed ? 'failed. ' + failed.textContent : tiles ? tiles + (tiles > 1 ? ' items' : ' item') : part.dataset.state);
    });
    one('[data-list="survived"]', panel).replaceChildren(...lines.map(line => {
        const item = document.createElement('li');
        item.textContent = line;
        return item;
    }));
}

// ---- Start.

watchParts();
showTimes();
setInterval(showTimes, 1000);
if (panel && sessionStorage.getItem('panel')) {
    togglePanel(true);
}
