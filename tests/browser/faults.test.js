// What the screens show when the service fails: each fault of the Break it panel.

import assert from 'node:assert/strict';
import { after, afterEach, before, beforeEach, describe, test } from 'node:test';
import { Service, startHost } from './support/Programs.js';
import { deadline, Television } from './support/Television.js';

let television, viewer;

before(async () => { television = await Television.start(); });
after(() => television?.end());
beforeEach(async () => {
    await television.service.choose('none');
    viewer = await television.viewer();
    await viewer.goTo('/');
});
afterEach(async () => {
    await television.service.choose('none');
    await viewer.close();
});

/** Waits until a list of the panel has an entry that contains all words. */
const listHas = (name, ...words) => viewer.until((selector, wanted) =>
    [...document.querySelectorAll(selector)].some((entry) => wanted.every((word) => entry.textContent.includes(word))),
`[data-list="${name}"] > *`, words);

/** A failed part of the screen has a sentence and Try again, and is shown again once the service works. */
async function failsAndRecovers() {
    await viewer.waitFor('main [data-state="failed"] [data-action="try-again"]');
    const failed = await viewer.text('main [data-state="failed"]');
    assert.ok(/[A-Z].*\./.test(failed), failed);
    await listHas('survived', 'failed');
    await viewer.breakIt('none');
    await viewer.until(() => document.querySelectorAll('main [data-state="failed"]').length === 0);
    await viewer.settle();
    assert.ok(await viewer.count('main a.tile') > 0);
}

for (const fault of ['offline', '500', 'not-json', 'row-without-title']) {
    test(`${fault} shows a sentence and Try again, and the screen recovers`, async () => {
        await viewer.breakIt(fault);
        await failsAndRecovers();
    });
}

test('Try again loads a failed part once the service works again', async () => {
    await viewer.breakIt('500');
    await viewer.waitFor('main [data-state="failed"] [data-action="try-again"]');
    await television.service.choose('none');
    await viewer.page.evaluate(() => document.querySelector('main [data-state="failed"] [data-action="try-again"]').click());
    await viewer.waitFor('main .hero');
});

test('slow shows the skeletons, and then the screen', async () => {
    await viewer.breakIt('slow');
    await viewer.waitFor('main [data-state="loading"]');
    await viewer.waitFor('main .hero');
    await viewer.settle();
});

test('unknown entities fail no row, and the panel lists what was left out', async () => {
    await viewer.breakIt('unknown-entities');
    await viewer.waitFor('main .hero');
    await viewer.settle();
    assert.equal(await viewer.count('main [data-state="failed"]'), 0);
    await listHas('survived', 'items');
    await viewer.until(() => document.querySelectorAll('[data-list="swallowed"] > *').length > 0);
});

test('broken elements are left out without failing their row, and the panel lists them', async () => {
    const before = await viewer.count('main a.tile');
    assert.ok(before > 0);
    await viewer.breakIt('broken-elements');
    await viewer.waitFor('main .hero');
    await viewer.settle();
    assert.equal(await viewer.count('main [data-state="failed"]'), 0);
    await listHas('survived', 'items');
    await viewer.until(() => document.querySelectorAll('[data-list="swallowed"] > *').length > 0);
});

test('an expired token shows a sentence on Me, and Home still works', async () => {
    await viewer.signIn();
    await viewer.breakIt('expired-token');
    await viewer.waitFor('main [data-state="failed"]');
    assert.match(await viewer.text('main [data-state="failed"]'), /[Ss]ign/);
    await viewer.goTo('/');
    assert.ok(await viewer.count('main .hero') > 0);
});

test('the panel lists each request with its status and time, and whether the cache answered', async () => {
    await viewer.breakIt('none');
    await listHas('requests', 'GET', '/v2/home', '200', 'ms', 'network');
    await viewer.goTo('/');
    await listHas('requests', 'GET', '/v2/home', '200', 'ms', 'cache');
    await viewer.breakIt('500');
    await listHas('requests', 'GET', '/v2/home', '500', 'ms');
});

describe('a service that is not running', () => {
    test('gives the failed state at start, and the screen recovers by itself when the service starts', async () => {
        const first = await Service.start();
        const { port } = first;
        await first.end();
        const host = await startHost(`http://127.0.0.1:${port}`);
        const other = await television.viewer(undefined, { host });
        let returned;
        try {
            await other.goTo('/');
            await other.waitFor('main [data-state="failed"] [data-action="try-again"]');
            returned = await Service.start({ port });
            await other.page.waitForSelector('main .hero', { timeout: 2 * deadline });
        } finally {
            await other.close();
            await host.end();
            await returned?.end();
        }
    });
});
