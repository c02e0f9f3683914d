// Several viewers at once: two users with lists of their own, cancelled loads, and fifty pages in parallel.

import assert from 'node:assert/strict';
import { after, before, beforeEach, test } from 'node:test';
import { deadline, launch, Television } from './support/Television.js';

let television;

before(async () => { television = await Television.start(); });
after(() => television?.end());
beforeEach(() => television.service.choose('none'));

test('two browsers have two users, each with a list of its own', async () => {
    const second = await launch();
    const viewers = [await television.viewer(), await television.viewer(undefined, { browser: second })];
    try {
        for (const [i, name] of ['ann', 'ben'].entries()) {
            await viewers[i].signIn(name);
        }
        const shows = ['harbour-lights', 'night-ferry'];
        await Promise.all(viewers.map(async (viewer, i) => {
            await viewer.goTo(`/show/${shows[i]}`);
            await viewer.press('[data-action="save"]');
            await viewer.waitFor('[data-action="save"][aria-pressed="true"]');
        }));
        for (const [i, viewer] of viewers.entries()) {
            await viewer.goTo('/me');
            await viewer.loadAll();
            const saved = await viewer.page.$$eval('[data-src="/part/list"] a.tile', (tiles) => tiles.map((tile) => tile.href));
            assert.ok(saved.some((href) => href.includes(shows[i])), saved.join(' '));
            assert.ok(!saved.some((href) => href.includes(shows[1 - i])), saved.join(' '));
            assert.deepEqual(viewer.problems, []);
        }
    } finally {
        await second.close();
    }
});

test('a search is cancelled when more letters are typed', async () => {
    const viewer = await television.viewer();
    await viewer.goTo('/search');
    await television.service.choose('slow', 600);
    await television.service.clearLog();
    const asked = (word) => viewer.page.waitForRequest((request) => request.url().endsWith(`/part/search?q=${word}`));
    const first = asked('se');
    await viewer.page.type('#word', 'se');
    await first;
    const second = asked('sea');
    await viewer.page.type('#word', 'a');
    await second;
    const end = Date.now() + deadline;
    let cancelled;
    while (!cancelled && Date.now() < end) {
        const log = await television.service.log();
        cancelled = log.find((record) => record.target.includes('keyword=se&') || record.target.endsWith('keyword=se'));
    }
    assert.ok(cancelled, 'the service has not seen the search cancelled');
    assert.equal(cancelled.clientLeft, true);
    await television.service.choose('none');
    await viewer.page.type('#word', ' ');
    await viewer.waitFor('#results[data-state="ready"] a.tile');
    assert.deepEqual(viewer.problems, []);
    await viewer.close();
});

test('leaving a page cancels its loads', async () => {
    const viewer = await television.viewer();
    await viewer.goTo('/search');
    await television.service.choose('slow', 600);
    await television.service.clearLog();
    const asked = viewer.page.waitForRequest((request) => request.url().includes('/part/search?q=harbour'));
    await viewer.page.type('#word', 'harbour');
    await asked;
    await viewer.close();
    const end = Date.now() + deadline;
    let left = [];
    while (left.length === 0 && Date.now() < end) {
        left = (await television.service.log()).filter((record) => record.target.includes('keyword=harbour'));
    }
    assert.equal(left[0]?.clientLeft, true);
});

test('fifty pages load in parallel without a failure', async () => {
    const paths = ['/', '/show/harbour-lights', '/video/HL0102', '/search?q=sea', '/live'];
    const first = await television.viewer();
    const pages = [];
    // One after the other: a busy machine does not open fifty windows within the time that the driver allows for one.
    while (pages.length < 50) pages.push(await first.another({ width: 800, height: 600 }));
    for (const { page } of pages) page.setDefaultTimeout(5 * deadline);
    await Promise.all(pages.map((page, i) => page.goTo(paths[i % paths.length])));
    for (const [i, page] of pages.entries()) {
        const failed = await page.count('[data-state="failed"]');
        assert.deepEqual([failed, ...page.problems], [0], paths[i % paths.length]);
    }
    await first.close();
});
