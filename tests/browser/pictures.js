// Takes the pictures of the guides: node pictures.js FOLDER

import path from 'node:path';
import { Television } from './support/Television.js';

const folder = process.argv[2];
const television = await Television.start();
const viewer = await television.viewer({ width: 1920, height: 1080 });
await viewer.page.emulateMediaFeatures([
    { name: 'prefers-color-scheme', value: 'dark' },
    { name: 'prefers-reduced-motion', value: 'reduce' },
]);

const take = (name) => viewer.page.screenshot({ path: path.join(folder, `${name}.png`) });

/** Plays a video and stops at a position, from which it will resume. */
async function watch(video, seconds) {
    await viewer.goTo(`/video/${video}`);
    await viewer.play();
    await viewer.seek(seconds);
}

try {
    await viewer.signIn();
    for (const [video, seconds] of [['QO0102', 900], ['CC0103', 2100], ['NF0202', 400], ['HL0101', 1500]]) {
        await watch(video, seconds);
    }

    await viewer.goTo('/');
    await viewer.loadAll();
    await viewer.page.evaluate(() => scrollTo({ top: 0, behavior: 'instant' }));
    await viewer.page.focus('.hero [data-action="play"]');
    await take('home');

    await viewer.goTo('/show/harbour-lights');
    await viewer.loadAll();
    await viewer.page.evaluate(() => scrollTo({ top: 0, behavior: 'instant' }));
    await take('show');

    await viewer.goTo('/video/HL0102');
    await viewer.play();
    await viewer.until(() => document.querySelector('#player').currentTime > 5);
    await take('video');

    await viewer.goTo('/');
    await viewer.breakIt('broken-elements');
    await viewer.until(() => document.querySelectorAll('[data-list="swallowed"] > *').length > 0);
    await viewer.settle();
    await take('break-it');
} finally {
    await viewer.close();
    await television.end();
}
