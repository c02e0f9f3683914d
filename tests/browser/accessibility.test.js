// What axe-core finds on each screen: nothing more than minor, in light and in dark, on a television and a phone.

import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import axe from 'axe-core';
import { Television } from './support/Television.js';

const screens = {
    Home: '/',
    Show: '/show/harbour-lights',
    Video: '/video/HL0102',
    Search: '/search?q=sea',
    'Search without results': '/search?q=zeppelin',
    Live: '/live',
    Me: '/me',
};
const sizes = { television: { width: 1920, height: 1080 }, phone: { width: 390, height: 844 } };

let television;

before(async () => { television = await Television.start(); });
after(() => television?.end());

async function findings(viewer) {
    await viewer.page.evaluate(axe.source);
    const { violations } = await viewer.page.evaluate(() => globalThis.axe.run(document, { resultTypes: ['violations'] }));
    return violations
        .filter((violation) => ['moderate', 'serious', 'critical'].includes(violation.impact))
        .map((violation) => `${violation.id}: ${violation.nodes.slice(0, 3).map((node) => node.html).join(' ')}`);
}

async function look({ path, size, scheme = 'dark', prepare }) {
    const viewer = await television.viewer(size);
    await viewer.page.emulateMediaFeatures([
        { name: 'prefers-color-scheme', value: scheme },
        { name: 'prefers-reduced-motion', value: 'reduce' },
    ]);
    await viewer.goTo(path);
    await viewer.loadAll();
    await prepare?.(viewer);
    const found = await findings(viewer);
    const sideways = await viewer.page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
    await viewer.close();
    assert.deepEqual(found, []);
    assert.ok(sideways <= 0, `the page is ${sideways} px wider than the window`);
}

for (const [name, path] of Object.entries(screens)) {
    for (const [device, size] of Object.entries(sizes)) {
        test(`${name} on a ${device}`, () => look({ path, size }));
    }
    test(`${name} in light`, () => look({ path, size: sizes.television, scheme: 'light' }));
}

test('Home with the Break it panel', () =>
    look({ path: '/', size: sizes.television, prepare: (viewer) => viewer.breakIt('none') }));

test('Home after a failure', async () => {
    await television.service.choose('500');
    try {
        await look({ path: '/', size: sizes.television });
    } finally {
        await television.service.choose('none');
    }
});

test('Me with a signed-in user', () => look({
    path: '/me', size: sizes.television,
    prepare: async (viewer) => {
        await viewer.press('[data-action="sign-in"]');
        await viewer.waitFor('[data-action="sign-out"]');
        await viewer.loadAll();
    },
}));
