// What each screen shows when the service works.

import assert from 'node:assert/strict';
import { test } from 'node:test';
import { viewer } from './support/ViewerOfEachTest.js';

/** Pictures that the browser could not decode. */
const brokenPictures = () => viewer.page.$$eval('img', (images) =>
    images.filter((image) => image.complete && image.naturalWidth === 0).map((image) => image.src));

const linkTo = (kind) => viewer.page.$eval(`main .tile[data-kind="${kind}"]`, (tile) => tile.getAttribute('href'));

test('Home has a featured item and rows of tiles, each with its picture', async () => {
    await viewer.goTo('/');
    assert.equal(await viewer.screen(), 'home');
    assert.ok(await viewer.text('.hero h1'));
    await viewer.loadAll();
    const rows = await viewer.page.$$eval('section.row[data-row]', (found) => found.map((row) => ({
        name: row.dataset.row,
        title: row.querySelector('h2').textContent,
        state: row.dataset.state,
        tiles: row.querySelectorAll('a.tile').length,
        pictures: row.querySelectorAll('a.tile img').length,
    })));
    assert.ok(rows.length >= 8, JSON.stringify(rows));
    const full = rows.filter((row) => row.state === 'ready');
    assert.ok(full.length >= 8, JSON.stringify(rows));
    for (const row of full) {
        assert.ok(row.title && row.tiles > 0 && row.pictures === row.tiles, JSON.stringify(row));
    }
    assert.deepEqual(await brokenPictures(), []);
});

test('Home loads a row only when it comes into view', async () => {
    await viewer.goTo('/');
    assert.ok(await viewer.count('section.row[data-state="loading"]') > 0);
    await viewer.loadAll();
    assert.equal(await viewer.count('section.row[data-state="loading"]'), 0);
});

test('Home has badges, and live programmes with their progress', async () => {
    await viewer.goTo('/');
    await viewer.loadAll();
    assert.ok(await viewer.count('.tile .badge') > 0);
    assert.ok(await viewer.count('.tile[data-kind] [data-progress]') > 0);
});

test('Show has its description, series, episodes with thumbnails, and related shows', async () => {
    await viewer.goTo('/');
    await viewer.loadAll();
    await viewer.goTo(await linkTo('Show'));
    assert.equal(await viewer.screen(), 'show');
    await viewer.loadAll();
    assert.ok(await viewer.text('main h1'));
    assert.ok(await viewer.count('main a.tile[data-kind="Video"] img') > 0);
    assert.ok(await viewer.count('main a.tile[data-kind="Show"]') > 0);
    assert.equal(await viewer.count('[data-action="save"]'), 1);
    // A picture that is larger than its frame must not be scrolled inside it.
    assert.equal(await viewer.page.$eval('.hero', (hero) => hero.scrollTop), 0);
    assert.deepEqual(await brokenPictures(), []);
});

test('Show changes its episodes with the tab of another series', async () => {
    await viewer.goTo('/show/harbour-lights');
    await viewer.loadAll();
    const tabs = await viewer.page.$$('[role="tab"]');
    assert.equal(tabs.length, 2);
    const episodes = () => viewer.page.$$eval('[role="tabpanel"] a.tile', (found) => found.map((tile) => tile.href));
    const first = await episodes();
    assert.equal(first.length, 3);
    const other = await viewer.waitFor('[role="tab"][aria-selected="false"]');
    await other.click();
    await viewer.until((old) => {
        const tiles = [...document.querySelectorAll('[role="tabpanel"] a.tile')].map((tile) => tile.href);
        return tiles.length > 0 && !tiles.some((tile) => old.includes(tile));
    }, first);
});

test('Video says what it plays and why, and offers qualities', async () => {
    await viewer.goTo('/video/HL0102');
    assert.equal(await viewer.screen(), 'video');
    await viewer.loadAll();
    await viewer.waitFor('video#player');
    assert.ok(await viewer.count('[data-quality]') >= 2);
    const text = await viewer.text('main');
    for (const word of ['Slack Water', 'HLS', '720']) assert.ok(text.includes(word), `${word} is not in: ${text}`);
});

test('Video says that a video cannot be played', async () => {
    await viewer.goTo('/video/HL0103');
    await viewer.loadAll();
    assert.equal(await viewer.count('video#player'), 0);
    assert.match(await viewer.text('main'), /Not available in your region/);
});

test('Search shows results while typing, and says so if there are none', async () => {
    await viewer.goTo('/search');
    assert.equal(await viewer.screen(), 'search');
    await viewer.page.type('input[type="search"], #word', 'weather');
    await viewer.waitFor('#results[data-state="ready"] a.tile');
    assert.ok((await viewer.texts('#results a.tile')).some((title) => title.includes('Weather or Not')));
    await viewer.page.type('#word', ' zeppelin');
    await viewer.waitFor('#results[data-state="empty"]');
    assert.ok(await viewer.text('#results'));
});

test('Live has the channels of a region with what they show now and next', async () => {
    await viewer.goTo('/live');
    assert.equal(await viewer.screen(), 'live');
    await viewer.loadAll();
    assert.equal(await viewer.count('main a.tile.channel'), 5);
    assert.equal(await viewer.count('main .tile.channel .now'), 5);
    assert.equal(await viewer.count('main .tile.channel .next'), 5);
    const sent = await viewer.page.$eval('main .channel progress', (bar) => bar.value);
    await viewer.until((before) => document.querySelector('main .channel progress').value > before, sent);
    await viewer.goTo('/live?region=tas');
    await viewer.loadAll();
    const links = await viewer.page.$$eval('main a.tile.channel', (tiles) => tiles.map((tile) => tile.href));
    assert.ok(links.length > 0 && links.every((link) => link.includes('TAS')), links.join(' '));
});

test('Me signs in, shows the data of the user, and signs out', async () => {
    await viewer.goTo('/me');
    assert.equal(await viewer.screen(), 'me');
    await viewer.press('[data-action="sign-in"]');
    await viewer.waitFor('[data-action="sign-out"]');
    await viewer.loadAll();
    const names = await viewer.page.$$eval('section.row', (rows) => rows.map((row) => row.dataset.row));
    assert.deepEqual(names, ['My list', 'History', 'More for you']);
    assert.ok(await viewer.count('[data-profile]') > 0);
    await viewer.press('[data-action="sign-out"]');
    await viewer.waitFor('[data-action="sign-in"]');
});
