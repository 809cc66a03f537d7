#!/usr/bin/python3
"""scripts/convert-ctc: a checkpoint with the small model's weights becomes the small model's file again.

VANTRO_PROGRAM names the program, VANTRO_SOURCE_DIR the source.
"""

import collections
import io
import json
import os
import pickle
import struct
import subprocess
import sys
import tarfile
import tempfile
import types
import unittest
import zipfile
from pathlib import Path

import numpy

SOURCE = Path(os.environ.get("VANTRO_SOURCE_DIR", Path(__file__).resolve().parents[2]))
PROGRAM = Path(os.environ.get("VANTRO_PROGRAM", SOURCE / "build/dev/bin/vantro"))
DATA = SOURCE / "tests/data/parakeet"
MICRO = DATA / "parakeet-micro-ctc.gguf"
CONFIG = """
preprocessor: {sample_rate: 16000, features: 80, n_fft: 512, window_size: 0.025, window_stride: 0.01}
encoder: {d_model: 128, n_heads: 4, n_layers: 4, conv_kernel_size: 9, subsampling: dw_striding,
          subsampling_factor: 8, self_attention_model: rel_pos, xscaling: true, conv_norm_type: batch_norm}
"""


class Gguf:
    """The pairs and tensors of a file, read by another program than the one that is tested."""

    NUMBERS = {0: "B", 4: "I", 5: "i", 6: "f", 7: "?", 10: "Q", 12: "d"}

    def __init__(self, path):
        self.content = path.read_bytes()
        self.position = 8
        count, pairs = self.number("Q"), self.number("Q")
        self.pairs = dict(self.pair() for _ in range(pairs))
        entries = [self.entry() for _ in range(count)]
        data = -(-self.position // 32) * 32
        self.tensors = {name: self.tensor(shape, kind, data + offset) for name, shape, kind, offset in entries}

    def number(self, kind):
        value, = struct.unpack_from("<" + kind, self.content, self.position)
        self.position += struct.calcsize("<" + kind)
        return value

    def text(self):
        length = self.number("Q")
        self.position += length
        return self.content[self.position - length:self.position].decode()

    def value(self, kind):
        return self.text() if kind == 8 else self.number(self.NUMBERS[kind])

    def pair(self):
        key, kind = self.text(), self.number("I")
        if kind != 9:
            return key, self.value(kind)
        kind, count = self.number("I"), self.number("Q")
        return key, [self.value(kind) for _ in range(count)]

    def entry(self):
        name = self.text()
        shape = [self.number("Q") for _ in range(self.number("I"))]
        return name, shape[::-1], self.number("I"), self.number("Q")

    def tensor(self, shape, kind, offset):
        count = int(numpy.prod(shape))
        if kind == 8:
            blocks = numpy.frombuffer(self.content, numpy.dtype([("scale", "<f2"), ("steps", "i1", 32)]), count // 32, offset)
            return (blocks["steps"] * blocks["scale"][:, None].astype("<f4")).reshape(shape)
        return numpy.frombuffer(self.content, "<f4" if kind == 0 else "<f2", count, offset).reshape(shape)


def module(name, **members):
    """Stands in for PyTorch, which is not installed, while a checkpoint is written."""
    made = types.ModuleType(name)
    for member in members.values():
        member.__module__ = name
    made.__dict__.update(members)
    return made


class FloatStorage:
    pass


def _rebuild_tensor_v2():
    pass


class Storage:
    def __init__(self, key, size):
        self.identity = ("storage", FloatStorage, key, "cpu", size)


class Tensor:
    def __init__(self, storage, array):
        self.storage, self.array = storage, array

    def __reduce__(self):
        strides = tuple(stride // self.array.itemsize for stride in self.array.strides)
        return _rebuild_tensor_v2, (self.storage, 0, self.array.shape, strides, False, collections.OrderedDict())


class Pickler(pickle.Pickler):
    def persistent_id(self, value):
        return value.identity if isinstance(value, Storage) else None


def torch_archive(tensors):
    content = io.BytesIO()
    with zipfile.ZipFile(content, "w") as archive:
        held = collections.OrderedDict()
        for number, (name, array) in enumerate(tensors.items()):
            array = numpy.ascontiguousarray(array, "<f4")
            held[name] = Tensor(Storage(str(number), array.size), array)
            archive.writestr(f"model_weights/data/{number}", array.tobytes())
        stream = io.BytesIO()
        torch = {"torch": module("torch", FloatStorage=FloatStorage),
                 "torch._utils": module("torch._utils", _rebuild_tensor_v2=_rebuild_tensor_v2)}
        sys.modules.update(torch)
        try:
            Pickler(stream, 2).dump(held)
        finally:
            for name in torch:
                del sys.modules[name]
        archive.writestr("model_weights/data.pkl", stream.getvalue())
    return content.getvalue()


def message(number, content):
    assert len(content) < 128
    return bytes([number << 3 | 2, len(content)]) + content


def tokenizer(pieces, scores):
    return b"".join(message(1, message(1, piece.encode()) + b"\x15" + struct.pack("<f", score)
                            + bytes([0x18, 2 if number == 0 else 1]))
                    for number, (piece, score) in enumerate(zip(pieces, scores)))


def checkpoint_tensors(model):
    """The model's tensors by the names and in the shapes of a checkpoint whose encoder scales its input."""
    tensors = {"preprocessor.featurizer.fb": model.tensors["preprocessor.fb"][None],
               "preprocessor.featurizer.window": model.tensors["preprocessor.window"],
               "decoder.prediction.embed.weight": numpy.zeros((3, 3)),
               "ctc_decoder.decoder_layers.0.weight": model.tensors["ctc_decoder.weight"][..., None],
               "ctc_decoder.decoder_layers.0.bias": model.tensors["ctc_decoder.bias"]}
    for name, tensor in model.tensors.items():
        if not name.startswith("encoder."):
            continue
        tensor = tensor.astype("<f4")
        if name.endswith(("pointwise_conv1.weight", "pointwise_conv2.weight")):
            tensor = tensor[..., None]
        elif name.endswith("depthwise_conv.weight"):
            tensor = tensor[:, None]
        elif ".pre_encode.conv." in name and name.endswith(".bias"):
            tensor = tensor.reshape(-1)
        elif name.startswith("encoder.pre_encode.out."):
            tensor = tensor / numpy.float32(128 ** 0.5)
        elif name.endswith("running_var"):
            tensor = tensor - numpy.float32(1e-5)
        tensors[name] = tensor
        if name.endswith("running_var"):
            tensors[name.replace("running_var", "num_batches_tracked")] = numpy.array([1.0])
    return tensors


def nemo(path, tensors, config=CONFIG, pieces=None):
    with tarfile.open(path, "w") as archive:
        for name, content in (("./model_config.yaml", config.encode()), ("./model_weights.ckpt", torch_archive(tensors)),
                              ("./0123_tokenizer.model", pieces)):
            entry = tarfile.TarInfo(name)
            entry.size = len(content)
            archive.addfile(entry, io.BytesIO(content))


class ConvertCase(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.micro = Gguf(MICRO)
        cls.tensors = checkpoint_tensors(cls.micro)
        cls.pieces = tokenizer(cls.micro.pairs["tokenizer.ggml.tokens"], cls.micro.pairs["tokenizer.ggml.scores"])

    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory(prefix="vantro-convert-")))
        self.checkpoint = self.folder / "model.nemo"
        self.result = self.folder / "model.gguf"

    def convert(self, *words):
        return subprocess.run([SOURCE / "scripts/convert-ctc", *words, "-o", self.result], capture_output=True, text=True)

    def assert_same_model(self, tolerance):
        found = Gguf(self.result)
        self.assertEqual(found.tensors.keys(), self.micro.tensors.keys())
        for name, tensor in self.micro.tensors.items():
            expected = tensor - numpy.float32(1e-5) if name.endswith("running_var") else tensor.astype("<f4")
            self.assertEqual(found.tensors[name].shape, tensor.shape, name)
            difference = numpy.abs(found.tensors[name] - expected).max() / max(numpy.abs(expected).max(), 1e-9)
            self.assertLess(difference, tolerance, name)
        for key, value in self.micro.pairs.items():
            if key not in ("general.name", "parakeet-ctc.batch_norm_epsilon"):
                self.assertEqual(found.pairs[key], value, key)

    def test_a_checkpoint_becomes_the_same_model_in_every_precision(self):
        nemo(self.checkpoint, self.tensors, pieces=self.pieces)
        for kind, tolerance in (("f32", 1e-6), ("f16", 1e-3), ("q8_0", 6e-3)):
            with self.subTest(kind):
                outcome = self.convert(self.checkpoint, "--type", kind)
                self.assertEqual(outcome.returncode, 0, outcome.stderr)
                self.assert_same_model(tolerance)

    def test_safetensors_need_their_configuration_and_tokenizer(self):
        weights, config, pieces = (self.folder / name for name in ("w.safetensors", "config.yaml", "tokenizer.model"))
        entries, data = {}, b""
        for name, tensor in self.tensors.items():
            content = numpy.ascontiguousarray(tensor, "<f4").tobytes()
            entries[name] = {"dtype": "F32", "shape": tensor.shape, "data_offsets": [len(data), len(data) + len(content)]}
            data += content
        head = json.dumps(entries).encode()
        weights.write_bytes(struct.pack("<Q", len(head)) + head + data)
        config.write_text(CONFIG)
        pieces.write_bytes(self.pieces)
        self.assertIn("need --config and --tokenizer", self.convert(weights).stderr)
        outcome = self.convert(weights, "--config", config, "--tokenizer", pieces, "--type", "f32")
        self.assertEqual(outcome.returncode, 0, outcome.stderr)
        self.assert_same_model(1e-6)
        weights.write_bytes(weights.read_bytes()[:-1000])
        self.assertIn("beyond the end", self.convert(weights, "--config", config, "--tokenizer", pieces).stderr)

    def test_what_cannot_be_converted_leaves_no_file(self):
        class Attack:
            def __reduce__(self):
                return os.system, (f"touch {self_folder}/executed",)

        self_folder = self.folder
        without_head = {name: tensor for name, tensor in self.tensors.items() if not name.startswith("ctc_decoder")}
        cases = {"has no CTC head": lambda: nemo(self.checkpoint, without_head, pieces=self.pieces),
                 "another model": lambda: nemo(self.checkpoint, self.tensors, pieces=tokenizer(["<unk>", "a"], [0, 0])),
                 "only encoders that subsample by 8": lambda: nemo(
                     self.checkpoint, self.tensors, CONFIG.replace("dw_striding", "vggnet"), self.pieces),
                 "which is no tensor": lambda: nemo(self.checkpoint, {}, pieces=self.pieces) or self.poison(Attack()),
                 "convert-ctc: ": lambda: self.checkpoint.write_bytes(b"no archive")}
        for reason, make in cases.items():
            with self.subTest(reason):
                make()
                outcome = self.convert(self.checkpoint)
                self.assertEqual(outcome.returncode, 1)
                self.assertIn(reason, outcome.stderr)
                self.assertNotIn("Traceback", outcome.stderr)
        self.assertEqual({path.name for path in self.folder.iterdir()}, {"model.nemo"})

    def poison(self, value):
        content = io.BytesIO()
        with zipfile.ZipFile(content, "w") as archive:
            archive.writestr("model_weights/data.pkl", pickle.dumps(value))
        with tarfile.open(self.checkpoint, "w") as archive:
            for name, held in (("model_config.yaml", CONFIG.encode()), ("model_weights.ckpt", content.getvalue()),
                               ("tokenizer.model", self.pieces)):
                entry = tarfile.TarInfo(name)
                entry.size = len(held)
                archive.addfile(entry, io.BytesIO(held))

    def test_the_program_looks_for_words_with_the_result(self):
        nemo(self.checkpoint, self.tensors, pieces=self.pieces)
        self.assertEqual(self.convert(self.checkpoint).returncode, 0)
        environment = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")}
        environment |= {"XDG_DATA_HOME": str(self.folder / "data"), "XDG_CONFIG_HOME": str(self.folder / "config")}
        tried = subprocess.run([PROGRAM, "vocabulary", "try", DATA / "recordings/term-03.flac", "--term", "Redis",
                                "--model", DATA / "parakeet-micro-tdt.bin", "--ctc-model", self.result, "--json"],
                               env=environment, capture_output=True, text=True)
        self.assertEqual(tried.returncode, 0, tried.stderr)
        self.assertEqual(json.loads(tried.stdout)["text"], "Redis is very difficult.")


if __name__ == "__main__":
    unittest.main(verbosity=2)
