// Starts the sample service and the host, each on a free port of loopback.

import { spawn } from 'node:child_process';
import { existsSync } from 'node:fs';
import path from 'node:path';
import readline from 'node:readline';

const top = path.resolve(import.meta.dirname ?? path.dirname(new URL(import.meta.url).pathname), '../../..');
const programs = process.env.VRK_PROGRAMS ?? path.join(top, 'build/bin');
const hlsFile = path.join(top, 'tests/browser/node_modules/hls.js/dist/hls.min.js');

/** A program whose first line of output contains its address. */
class Program {
    static async start(name, ...options) {
        const file = path.join(programs, name);
        if (!existsSync(file)) throw new Error(`${file} is missing: run ./test --browser`);
        const program = new Program();
        program.process = spawn(file, options, { stdio: ['ignore', 'pipe', 'inherit'] });
        program.ended = new Promise((resolve) => program.process.once('exit', (code) => resolve(code)));
        const lines = readline.createInterface({ input: program.process.stdout });
        const first = await Promise.race([
            new Promise((resolve) => lines.once('line', resolve)),
            program.ended.then((code) => `ended with ${code}`),
        ]);
        program.address = first.match(/http:\/\/127\.0\.0\.1:\d+/)?.[0];
        if (!program.address) throw new Error(`${name} did not start: ${first}`);
        return program;
    }

    get port() {
        return new URL(this.address).port;
    }

    /** Ends it. Resolves to its exit code. */
    async end() {
        this.process.kill('SIGTERM');
        return this.ended;
    }
}

/** The sample service, with scenarios and with streams of its own. */
export class Service {
    static async start({ port = 0 } = {}) {
        const service = new Service();
        service.program = await Program.start(
            'sample-service', '--own-streams', '--scenarios', '--end-with-parent', '--port', String(port));
        return service;
    }

    get address() {
        return this.program.address;
    }

    get port() {
        return this.program.port;
    }

    async choose(fault, seconds) {
        const more = seconds === undefined ? '' : `&seconds=${seconds}`;
        const answer = await fetch(`${this.address}/control/fault?name=${fault}${more}`, { method: 'POST' });
        if (!answer.ok) throw new Error(`the service has no fault ${fault}`);
    }

    /** The requests that have ended, each with method, target, status, milliseconds and clientLeft. */
    async log() {
        const answer = await fetch(`${this.address}/control/log`);
        return (await answer.text()).split('\n').filter(Boolean).map((line) => JSON.parse(line));
    }

    async clearLog() {
        await fetch(`${this.address}/control/log`, { method: 'DELETE' });
    }

    end() {
        return this.program.end();
    }
}

/** The host. */
export const startHost = (service) =>
    Program.start('living-room', service.address ?? service, '0', hlsFile);
